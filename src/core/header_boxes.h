#pragma once

#include "core/block_header.h"
#include "core/control_state.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tarvex
{

/// The eleven boxes of a header on the panel, in the order in which the panel shows them and a
/// header frame carries them.
enum class HeaderBox {
    Client,
    Site,
    Tube,
    DepthMetres,
    DepthTenths,
    Step,
    Guides,
    North,
    Readout,
    Date,
    Time
};

/// The five boxes of a calibration, in the order of a calibration frame.
enum class CalibrationBox { Gain1, Zero1, Gain2, Zero2, Point };

/// One box of the panel, and where its text lives elsewhere.
template <class Box>
struct BoxRow {
    Box box;                    ///< what the box is for
    std::string_view control;   ///< the name of its control on the screen
    HeaderField field;          ///< the field of the record that it shows, or a part of it
    std::size_t first;          ///< where its part of the field begins, from 1
    std::size_t width;          ///< its maximum length, and so its length in a frame
    std::string_view page{};    ///< the page of the unit's memory; empty: it is never read
    std::string_view atStart{}; ///< its first text
};

/// The header, written down once: loading, storing, showing, reading and sending it walk these
/// rows. The depth is one field and one page, and has two boxes.
inline constexpr std::array<BoxRow<HeaderBox>, 11> kHeaderBoxes = {{
    {HeaderBox::Client, "Text3", &BlockHeader::cliente, 1, 8, "00"},
    {HeaderBox::Site, "Text4", &BlockHeader::cantiere, 1, 8, "10"},
    {HeaderBox::Tube, "Text5", &BlockHeader::tubo, 1, 4, "20"},
    {HeaderBox::DepthMetres, "Text6", &BlockHeader::profondità, 1, 3, "30"},
    {HeaderBox::DepthTenths, "Text13", &BlockHeader::profondità, 4, 1, "30", "0"},
    {HeaderBox::Step, "Text7", &BlockHeader::passo, 1, 1, "40"},
    {HeaderBox::Guides, "Text8", &BlockHeader::guide, 1, 1, "50", "2"},
    {HeaderBox::North, "Text9", &BlockHeader::nord, 1, 4, "60"},
    {HeaderBox::Readout, "Text10", &BlockHeader::nlet, 1, 2, "70"},
    {HeaderBox::Date, "Text11", &BlockHeader::data, 1, 6, "80"},
    {HeaderBox::Time, "Text12", &BlockHeader::ora, 1, 6, "90"},
}};

/// The calibration, which the panel carries out of sight. The unit never gives it back.
inline constexpr std::array<BoxRow<CalibrationBox>, 5> kCalibrationBoxes = {{
    {CalibrationBox::Gain1, "Text18", &BlockHeader::gain1, 1, 7},
    {CalibrationBox::Zero1, "Text20", &BlockHeader::zero1, 1, 7},
    {CalibrationBox::Gain2, "Text19", &BlockHeader::gain2, 1, 7},
    {CalibrationBox::Zero2, "Text21", &BlockHeader::zero2, 1, 7},
    {CalibrationBox::Point, "Text22", &BlockHeader::punto, 1, 1},
}};

/// The row of a box.
constexpr const BoxRow<HeaderBox>& RowOf(HeaderBox box)
{
    return kHeaderBoxes[static_cast<std::size_t>(box)];
}
constexpr const BoxRow<CalibrationBox>& RowOf(CalibrationBox box)
{
    return kCalibrationBoxes[static_cast<std::size_t>(box)];
}

/// One thing for each box, found by what the box is for.
template <class Box, class Thing, std::size_t Count>
struct PerBox {
    std::array<Thing, Count> things;

    Thing& operator[](Box box) { return things[static_cast<std::size_t>(box)]; }
    const Thing& operator[](Box box) const { return things[static_cast<std::size_t>(box)]; }
};

/// The eleven texts of a header as they are to be shown: uncut, and of any length.
using HeaderTexts = PerBox<HeaderBox, std::string, kHeaderBoxes.size()>;

/// The eleven boxes of a header.
struct HeaderBoxes : PerBox<HeaderBox, TextBox, kHeaderBoxes.size()> {
    HeaderBoxes();
};

/// The five boxes of a calibration.
struct CalibrationBoxes : PerBox<CalibrationBox, TextBox, kCalibrationBoxes.size()> {
    CalibrationBoxes();
};

/// Fills the eleven boxes from the record.
void LoadHeader(HeaderBoxes& boxes, const BlockHeader& header);

/// Fills the five boxes from the record.
void LoadCalibration(CalibrationBoxes& boxes, const BlockHeader& header);

/// Takes ten fields of the record from their boxes. The depth is its two boxes joined, neither
/// padded before.
void StoreHeader(BlockHeader& header, const HeaderBoxes& boxes);

/// Takes the five fields of the calibration from their boxes.
void StoreCalibration(BlockHeader& header, const CalibrationBoxes& boxes);

/// Fills the eleven boxes from their texts.
void ShowHeader(HeaderBoxes& boxes, const HeaderTexts& texts);

/// The texts of all the boxes in one, in the order of a frame.
std::string Joined(const HeaderBoxes& boxes);
std::string Joined(const CalibrationBoxes& boxes);

} // namespace tarvex
