// make_reports FOLDER: lets the manager download the known surveys into a folder that is there.
#include "survey/downloads.h"
#include "survey/known_surveys.h"

int main(int argc, char* argv[])
{
    if (argc != 2) return 2;
    const std::filesystem::path folder = argv[1];
    for (const auto& known : tarvex::tests::kKnownSurveys)
        tarvex::tests::Download(folder, std::string(known.fill), std::string(known.fault));
    std::filesystem::remove(folder / "datiram.dat");
    return 0;
}
