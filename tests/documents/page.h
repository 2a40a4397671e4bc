#pragma once

#include <string>
#include <vector>

namespace tarvex::tests
{

/// The cells of one row of a page's table, without the marks of code around them.
using Cells = std::vector<std::string>;

/// A page of docs/, read for what a test can hold against the code: its tables and its examples.
class Page
{
public:
    /// `name` is the file's name in docs/. Throws std::runtime_error when it cannot be read.
    explicit Page(const std::string& name);

    /// The rows of the first table under the heading of that text, without the row of titles.
    /// Throws std::runtime_error when there is no such heading or no table under it.
    std::vector<Cells> Table(const std::string& heading) const;

    /// The lines of the example that is marked with that name: the block of code that begins with
    /// three backticks and the name. Throws std::runtime_error when there is none.
    std::vector<std::string> Example(const std::string& name) const;

    /// The names of all examples, in order.
    std::vector<std::string> ExampleNames() const;

private:
    std::string name_;
    std::vector<std::string> lines_;
};

/// Compares an example with the lines that the code really gives. A line "..." of the example
/// stands for any number of lines; every other line must be there as it is. Returns what differs,
/// and an empty text when nothing does.
std::string Difference(const std::vector<std::string>& example,
                       const std::vector<std::string>& real);

/// The lines of `bytes` in the form of an example: offset, sixteen bytes in hexadecimal, and the
/// same as characters, a point for each that is no printable one.
std::vector<std::string> Dump(const std::string& bytes);

/// The number that a cell holds, in decimal or in hexadecimal.
int Number(const std::string& cell, int base = 10);

} // namespace tarvex::tests
