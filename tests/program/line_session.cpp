#include "program/line_session.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace tarvex::tests
{

namespace
{

constexpr std::string_view kUnit = "unit ";
constexpr std::string_view kRule = "---";

std::vector<std::string> Words(const std::string& line)
{
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}

} // namespace

LineSession::LineSession(const std::filesystem::path& path) : file(path)
{
    std::ifstream stream(path);
    std::string line;
    while (std::getline(stream, line) && line != kRule) {
        if (line.starts_with('#')) {
            remarks.push_back(line);
        } else if (line.starts_with(kUnit)) {
            for (const auto& word : Words(line.substr(kUnit.size())))
                unitOptions.push_back(word);
        } else {
            steps.push_back(line);
        }
    }
    if (line != kRule) throw std::runtime_error("no session in " + path.string());
    outcome.assign(std::istreambuf_iterator<char>(stream), {});
}

void LineSession::Keep(const std::string& newOutcome) const
{
    std::ofstream stream(file, std::ios::trunc);
    for (const auto& remark : remarks)
        stream << remark << '\n';
    if (!unitOptions.empty()) {
        stream << "unit";
        for (const auto& option : unitOptions)
            stream << ' ' << option;
        stream << '\n';
    }
    for (const auto& step : steps)
        stream << step << '\n';
    stream << kRule << '\n' << newOutcome;
}

std::filesystem::path LineSession::Record() const
{
    return std::filesystem::path(file).replace_extension(".line");
}

std::vector<std::filesystem::path> SessionsIn(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> sessions;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".session") sessions.push_back(entry.path());
    std::ranges::sort(sessions);
    return sessions;
}

} // namespace tarvex::tests
