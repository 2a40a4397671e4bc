#include "core/header_boxes.h"

namespace tarvex
{

namespace
{

/// The boxes that show one field, joined.
template <class Rows, class Boxes>
std::string TextOfField(const Rows& rows, const Boxes& boxes, HeaderField field)
{
    std::string text;
    for (const auto& row : rows)
        if (row.field == field) text += boxes[row.box].Text();
    return text;
}

template <class Rows, class Boxes>
void Load(const Rows& rows, Boxes& boxes, const BlockHeader& header)
{
    for (const auto& row : rows)
        boxes[row.box].SetText(TextOf(header, row.field).substr(row.first - 1, row.width));
}

template <class Rows, class Boxes>
void Store(const Rows& rows, BlockHeader& header, const Boxes& boxes)
{
    for (const auto& row : rows)
        if (row.first == 1) SetText(header, row.field, TextOfField(rows, boxes, row.field));
}

template <class Boxes>
std::string JoinedTexts(const Boxes& boxes)
{
    std::string text;
    for (const TextBox& box : boxes.things)
        text += box.Text();
    return text;
}

} // namespace

HeaderBoxes::HeaderBoxes()
{
    for (const auto& row : kHeaderBoxes)
        (*this)[row.box] = TextBox(row.width, row.atStart);
}

CalibrationBoxes::CalibrationBoxes()
{
    for (const auto& row : kCalibrationBoxes)
        (*this)[row.box] = TextBox::OutOfReach(row.width);
}

void LoadHeader(HeaderBoxes& boxes, const BlockHeader& header)
{
    Load(kHeaderBoxes, boxes, header);
}

void LoadCalibration(CalibrationBoxes& boxes, const BlockHeader& header)
{
    Load(kCalibrationBoxes, boxes, header);
}

void StoreHeader(BlockHeader& header, const HeaderBoxes& boxes)
{
    Store(kHeaderBoxes, header, boxes);
}

void StoreCalibration(BlockHeader& header, const CalibrationBoxes& boxes)
{
    Store(kCalibrationBoxes, header, boxes);
}

void ShowHeader(HeaderBoxes& boxes, const HeaderTexts& texts)
{
    for (const auto& row : kHeaderBoxes)
        boxes[row.box].SetText(texts[row.box]);
}

std::string Joined(const HeaderBoxes& boxes)
{
    return JoinedTexts(boxes);
}

std::string Joined(const CalibrationBoxes& boxes)
{
    return JoinedTexts(boxes);
}

} // namespace tarvex
