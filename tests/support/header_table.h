#pragma once

#include "support/test_program.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::tests
{

/// The 77 bytes of record `number` (1 to 30) of a table in which no two records share a text.
std::string OwnRecord(int number);

/// The thirty of them.
std::vector<std::string> OwnTable();

/// The 77 bytes of record `number` (1 to 30) of a table never used.
std::string DefaultRecord(int number);

/// `record` with other calibration bytes: those of `calibrated`.
std::string WithCalibrationOf(std::string_view calibrated, std::string_view record);

/// `record` with its first eight bytes replaced by `client`, padded.
std::string WithClient(std::string_view client, std::string_view record);

/// What a header frame carries of a record: 44 bytes, the dates cut at their boxes.
std::string HeaderPayload(std::string_view record);

/// What a calibration frame carries of a record: gain1, zero1, gain2, zero2, punto.
std::string CalibrationPayload(std::string_view record);

/// The five digits of the address of the block with that index (0 to 29).
std::string BlockAddress(int blockIndex);

/// "C", the address of the block with that index, the header of `record`, CR.
std::string HeaderFrame(int blockIndex, std::string_view record);

/// Replaces the header file by those records.
void WriteTable(const TestProgram& program, const std::vector<std::string>& records);

/// Replaces the header file by OwnTable and goes to its record `number`, as stepping there does
/// that also loads the hidden boxes.
void OpenOwnTableAt(TestProgram& program, int number);

/// The header file cut into records of 77 bytes; the last may be shorter.
std::vector<std::string> StoredTable(const TestProgram& program);

/// The eleven boxes of a header as one text: a HeaderPayload when they show a record.
std::string HeaderOnPanel(const TestProgram& program);

/// The five hidden boxes as one text: a CalibrationPayload when they show a record.
std::string CalibrationOnPanel(const TestProgram& program);

/// From now on every text assigned to `box` is noted in the port's history as `name` and "=" and
/// the text.
void LogTexts(TestProgram& program, std::string name, TextBox& box);

} // namespace tarvex::tests
