#pragma once

#include "database/value.h"

#include <filesystem>
#include <memory>
#include <string_view>

namespace tarvex
{

/// A handle over survey rows in the order in which they were added. A handle that has just been
/// opened is on its first row, or past the end when it has none. The mark of a
/// row is the one that it has when it becomes the current row. Every operation raises
/// RunTimeFailure when it cannot be done, also when another program has held the file for a second;
/// after Close none can.
class RecordSet
{
public:
    virtual ~RecordSet() = default;

    /// `filter`: a criterion as in criterion.h, which takes effect on the next OpenRecordset. An
    /// empty one lets every row pass.
    virtual void SetFilter(std::string_view criterion) = 0;

    /// A new handle over the rows of the table that meet the filter: fields are compared at their
    /// full width, without regard to the case of A to Z, and Null meets nothing. Fails when the
    /// filter cannot be read or names an unknown field.
    virtual std::unique_ptr<RecordSet> OpenRecordset() = 0;

    /// Fails when the handle holds no rows.
    virtual void MoveFirst() = 0;

    /// `EOF`: true once the position has moved past the last row.
    virtual bool Eof() = 0;

    /// Fails when the position is past the last row already. A move drops the edit buffer.
    virtual void MoveNext() = 0;

    /// From now on MoveNext may pass over rows whose mark is empty text: whoever walks does nothing
    /// to them. What it passes over had that mark at the moment of the move.
    virtual void PassOverEmptyMarks() {}

    /// Starts a new row in the edit buffer, with Null in every field. The handle stays on its row,
    /// also after Update.
    virtual void AddNew() = 0;

    /// Starts editing the current row in the edit buffer. Fails without a current row.
    virtual void Edit() = 0;

    /// Commits the edit buffer: when it returns the row is on the disk. Fails without a buffer, and
    /// when the row cannot be written or its mark is no longer the one that was read; the row is
    /// then as it was. A Null mark that becomes empty text, and nothing else, may wait for its
    /// neighbours of the same kind, at most until the handle comes to a row with a mark, to the end
    /// or to Close.
    virtual void Update() = 0;

    /// A field of the edit buffer, or else of the current row. The name is taken without regard to
    /// the case of A to Z. Fails for an unknown name and without a row.
    virtual Value Fields(std::string_view name) = 0;

    /// Sets a field of the edit buffer. `nlet` keeps a number and a text apart, every other field
    /// turns a number into its text. Fails for an unknown name and without a buffer.
    virtual void SetField(std::string_view name, const Value& value) = 0;

    /// Keeps other programs from writing to the table until the next Update or LetOthersWrite of a
    /// handle on it: what a look-up finds is still true when it is written. A field read later is
    /// what the row holds then.
    virtual void KeepOthersFromWriting() = 0;

    /// Other programs may write again. Goes before whatever may take long, such as a box.
    virtual void LetOthersWrite() = 0;

    /// Closes the handle; an edit buffer is dropped.
    virtual void Close() = 0;
};

/// What keeps survey rows in a file.
class SurveyEngine
{
public:
    virtual ~SurveyEngine() = default;

    /// A writable handle over all rows of the table `tar_vex`; file and table are made when
    /// missing. Fails, without a change to the file, when it holds anything else than such a
    /// database, or cannot be opened for writing within a second.
    virtual std::unique_ptr<RecordSet> OpenTable(const std::filesystem::path& file) = 0;
};

} // namespace tarvex
