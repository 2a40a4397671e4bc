#include "record_files/modelled_file.h"

#include "common/require.h"
#include "core/failure.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace tarvex::fuzz
{

namespace
{

constexpr double kNumbers[] = {1,
                               2,
                               3,
                               29,
                               30,
                               31,
                               100,
                               0,
                               -1,
                               0.5,
                               2.5,
                               1e9,
                               2147483647.0,
                               2147483648.0,
                               1e300,
                               std::numeric_limits<double>::infinity(),
                               -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()};

/// True when the step ran.
template <class Step>
bool Runs(Step&& step)
{
    try {
        step();
        return true;
    } catch (const RunTimeFailure& failure) {
        Require(failure.what()[0] != '\0', "a failure gives its reason");
        return false;
    }
}

bool NamesARecord(double number)
{
    return number >= 1 && number <= std::numeric_limits<int>::max() && std::floor(number) == number;
}

} // namespace

ModelledFile::ModelledFile(std::filesystem::path path, std::string bytes, std::size_t limit)
    : path_(std::move(path)), bytes_(std::move(bytes)), limit_(limit)
{
    file_.Open(path_);
}

void ModelledFile::Step(Choices& choices)
{
    const double number = choices.OneOf(kNumbers);
    switch (choices.Below(3)) {
    case 0: {
        Record record{};
        std::ranges::copy(choices.Bytes(record.size()), record.begin());
        return Put(number, record);
    }
    case 1:
        return Get(number);
    default:
        file_.Close();
        Require(!Runs([&] { file_.EndOfFile(); }), "a closed file has no end");
        file_.Open(path_);
    }
}

void ModelledFile::Put(double number, const Record& record)
{
    const bool ran = Runs([&] { file_.Put(number, record); });
    if (!NamesARecord(number)) {
        Require(!ran, "a put of no record fails");
        return RequireTheSame(bytes_.size());
    }
    const double offset = (number - 1) * sizeof(Record);
    const bool fits = offset + sizeof(Record) <= static_cast<double>(limit_);
    Require(ran == fits, "a put fails where the disk is full, and only there");
    const auto at = static_cast<std::size_t>(offset);
    if (!ran) {
        RequireTheSame(std::min(bytes_.size(), at));
        bytes_ = tests::FileBytes(path_); // what was there of the record may be another
        return;
    }
    bytes_.resize(std::max(bytes_.size(), at + record.size()));
    bytes_.replace(at, record.size(), record.data(), record.size());
    RequireTheSame(bytes_.size());
}

void ModelledFile::Get(double number)
{
    Record record{};
    const bool ran = Runs([&] { file_.Get(number, record); });
    Require(ran == NamesARecord(number), "a get of a record never fails");
    if (!ran) return;
    std::string expected;
    const double offset = (number - 1) * sizeof(Record);
    if (offset < static_cast<double>(bytes_.size()))
        expected = bytes_.substr(static_cast<std::size_t>(offset), record.size());
    Require(file_.EndOfFile() == (expected.size() < record.size()), "the end of the file is seen");
    expected.resize(record.size(), ' ');
    Require(std::ranges::equal(expected, record), "a get gives what is there, and blanks");
}

void ModelledFile::RequireTheSame(std::size_t upTo) const
{
    const std::string found = tests::FileBytes(path_);
    Require(found.size() == bytes_.size(), "a file is as long as what was put");
    Require(found.compare(0, upTo, bytes_, 0, upTo) == 0, "a file holds what was put");
}

} // namespace tarvex::fuzz
