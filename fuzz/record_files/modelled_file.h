#pragma once

#include "common/choices.h"
#include "core/record_file.h"

#include <array>
#include <filesystem>
#include <string>

namespace tarvex::fuzz
{

/// A record file beside what it must hold: each step is done to both, and then they are compared.
class ModelledFile
{
public:
    /// The disk is full where the file has `limit` bytes.
    ModelledFile(std::filesystem::path path, std::string bytes, std::size_t limit);

    /// A put, a get, or a closing and opening anew, of any record.
    void Step(Choices& choices);

private:
    using Record = std::array<char, 77>;

    void Put(double number, const Record& record);
    void Get(double number);
    void RequireTheSame(std::size_t upTo) const;

    std::filesystem::path path_;
    std::string bytes_;
    std::size_t limit_;
    RecordFile file_{sizeof(Record)};
};

} // namespace tarvex::fuzz
