#include "documents/page.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tarvex::tests
{

namespace
{

constexpr const char* kFence = "```";
constexpr const char* kGap = "...";
constexpr std::size_t kBytesOfLine = 16;

std::string Trimmed(std::string text)
{
    std::erase(text, '`');
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

Cells CellsOf(const std::string& row)
{
    Cells cells;
    std::istringstream rest(row.substr(1));
    for (std::string cell; std::getline(rest, cell, '|');)
        cells.push_back(Trimmed(cell));
    return cells;
}

std::string Hexadecimal(std::size_t value, std::size_t width)
{
    std::string digits;
    for (; digits.size() < width; value /= 16)
        digits.insert(digits.begin(), "0123456789ABCDEF"[value % 16]);
    return digits;
}

std::string DumpLine(std::size_t offset, const std::string& bytes)
{
    std::string line = Hexadecimal(offset, 4) + " ";
    std::string characters;
    for (const char byte : bytes) {
        line += " " + Hexadecimal(static_cast<unsigned char>(byte), 2);
        characters += byte >= ' ' && byte <= '~' ? byte : '.';
    }
    line.resize(6 + 3 * kBytesOfLine, ' ');
    return line + "|" + characters + "|";
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

} // namespace

Page::Page(const std::string& name) : name_(name)
{
    std::ifstream file(std::string(TARVEX_DOCS) + "/" + name);
    if (!file) throw std::runtime_error("no page " + name);
    for (std::string line; std::getline(file, line);)
        lines_.push_back(line);
}

std::vector<Cells> Page::Table(const std::string& heading) const
{
    auto line = std::find_if(lines_.begin(), lines_.end(), [&](const std::string& candidate) {
        return candidate.starts_with("#") && Trimmed(candidate).ends_with("# " + heading);
    });
    const auto isRow = [](const std::string& candidate) { return candidate.starts_with("|"); };
    line = std::find_if(line, lines_.end(), isRow);
    std::vector<Cells> rows;
    for (; line != lines_.end() && isRow(*line); ++line)
        rows.push_back(CellsOf(*line));
    if (rows.size() < 3) throw std::runtime_error(name_ + ": no table under " + heading);
    return {rows.begin() + 2, rows.end()}; // the titles and the rule below them
}

std::vector<std::string> Page::Example(const std::string& name) const
{
    const auto start = std::find(lines_.begin(), lines_.end(), kFence + name);
    if (start == lines_.end()) throw std::runtime_error(name_ + ": no example " + name);
    return {start + 1, std::find(start + 1, lines_.end(), kFence)};
}

std::vector<std::string> Page::ExampleNames() const
{
    std::vector<std::string> names;
    for (const std::string& line : lines_)
        if (line.starts_with(kFence) && line != kFence) names.push_back(line.substr(3));
    return names;
}

std::string Difference(const std::vector<std::string>& example,
                       const std::vector<std::string>& real)
{
    auto next = real.begin();
    for (auto run = example.begin();;) {
        const auto runEnd = std::find(run, example.end(), kGap);
        const bool first = run == example.begin();
        const bool last = runEnd == example.end();
        auto found = first ? next : std::search(next, real.end(), run, runEnd);
        if (last && !first && real.end() - next >= runEnd - run)
            found = real.end() - (runEnd - run);
        if (real.end() - found < runEnd - run || !std::equal(run, runEnd, found))
            return "the example says\n" + Joined({run, runEnd}) + "and there is\n" + Joined(real);
        next = found + (runEnd - run);
        if (last) return next == real.end() ? "" : "there is more, from\n" + *next;
        run = runEnd + 1;
    }
}

std::vector<std::string> Dump(const std::string& bytes)
{
    std::vector<std::string> lines;
    for (std::size_t offset = 0; offset < bytes.size(); offset += kBytesOfLine)
        lines.push_back(DumpLine(offset, bytes.substr(offset, kBytesOfLine)));
    return lines;
}

int Number(const std::string& cell, int base)
{
    std::size_t read = 0;
    const int number = std::stoi(cell, &read, base);
    if (read != cell.size()) throw std::runtime_error("no number: " + cell);
    return number;
}

} // namespace tarvex::tests
