// A fuzzing engine for any compiler: replays what is kept, and then tries changes of it without
// end.

#include "common/entry.h"
#include "common/last_input.h"
#include "common/mutator.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <string>
#include <unistd.h>
#include <vector>

namespace tarvex::fuzz
{
namespace
{

constexpr auto kUsage =
    "PROGRAM [--seconds N] [--runs N] [--seed N] [--keep FOLDER] [FILE|FOLDER...]\n"
    "replays the inputs given, and then tries changes of them; what does not\n"
    "hold ends it, and the input is in FOLDER\n";
constexpr std::size_t kLongestInput = 1024;
constexpr unsigned kLongestRun = 25; // seconds

struct Options {
    double seconds = 0;
    std::uint64_t runs = 0;
    std::uint32_t seed = 1;
    std::filesystem::path keep = ".";
    std::vector<std::filesystem::path> inputs;
};

Options ReadOptions(const std::vector<std::string>& words)
{
    Options options;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const auto value = [&] { return words.at(++at); };
        if (words[at] == "--seconds")
            options.seconds = std::stod(value());
        else if (words[at] == "--runs")
            options.runs = std::stoull(value());
        else if (words[at] == "--seed")
            options.seed = static_cast<std::uint32_t>(std::stoul(value()));
        else if (words[at] == "--keep")
            options.keep = value();
        else if (words[at].starts_with("--"))
            throw std::invalid_argument(words[at]);
        else
            options.inputs.emplace_back(words[at]);
    }
    if (options.seconds == 0 && options.runs == 0) return options;
    if (options.seconds == 0) options.seconds = std::numeric_limits<double>::max();
    if (options.runs == 0) options.runs = std::numeric_limits<std::uint64_t>::max();
    return options;
}

std::vector<std::string> Kept(const std::vector<std::filesystem::path>& places)
{
    std::vector<std::string> kept;
    const auto read = [&kept](const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        if (!file) throw std::runtime_error("cannot read " + path.string());
        kept.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    };
    for (const auto& place : places) {
        if (!std::filesystem::is_directory(place)) {
            read(place);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(place))
            read(entry.path());
    }
    return kept;
}

void Run(const std::string& input)
{
    RememberInput(input);
    ::alarm(kLongestRun); // which nothing survives that neither sleeps nor ends
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void RunAll(const Options& options)
{
    const auto kept = Kept(options.inputs);
    for (const auto& input : kept)
        Run(input);

    Mutator mutator(options.seed, kept, kLongestInput);
    const auto start = std::chrono::steady_clock::now();
    const double before = ProcessorSeconds();
    std::uint64_t runs = 0;
    std::chrono::duration<double> wall{0};
    while (wall.count() < options.seconds && runs < options.runs) {
        Run(mutator.Next());
        ++runs;
        wall = std::chrono::steady_clock::now() - start;
    }
    ::alarm(0);
    RememberInput({}); // the last one is gone; what is found from here on is of no single input
    const double used = ProcessorSeconds() - before;
    std::cout << kept.size() << " kept inputs replayed, " << runs << " more tried in "
              << wall.count() << " s; " << (used > 0 ? static_cast<double>(runs) / used : 0)
              << " a processor second" << std::endl;
}

} // namespace
} // namespace tarvex::fuzz

int main(int argc, char** argv)
{
    using namespace tarvex::fuzz;
    try {
        const auto options = ReadOptions({argv + 1, argv + argc});
        KeepLastInputIn(std::filesystem::absolute(options.keep));
        LLVMFuzzerInitialize(&argc, &argv);
        RunAll(options);
        return EXIT_SUCCESS;
    } catch (const std::invalid_argument& wrong) {
        std::cerr << "what is " << wrong.what() << "?\n" << kUsage;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
    }
    return 2;
}
