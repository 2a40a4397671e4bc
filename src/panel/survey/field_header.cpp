#include "panel/survey/field_header.h"

#include "database/survey_fields.h"

#include <QHelpEvent>
#include <QToolTip>

#include <array>

namespace tarvex::panel
{

namespace
{

/// Of the fields in front of the slots, in their order.
constexpr std::array kMeanings = {
    "Client",
    "Site",
    "Tube",
    "Depth in tenths of a metre, four digits",
    "Step: 0 for half a metre, 1 for a metre",
    "Number of guides, 2 or 4",
    "North: sign and three digits of degrees",
    "Number of the latest reading filed",
};

const int kMarkColumn = static_cast<int>(FieldIndex(kMarkField));

} // namespace

FieldHeader::FieldHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
{
    setSectionsClickable(true); // as a table's own header
    setHighlightSections(true);
}

QString FieldHeader::Meaning(int field)
{
    if (field == kMarkColumn)
        return QStringLiteral(
            "Block, 1 to 29, that \"Write Headers\" makes from the row; empty for none");
    const auto place = static_cast<std::size_t>(field);
    if (place < kMeanings.size()) return QString::fromLatin1(kMeanings[place]);
    return QStringLiteral("Date and time of reading %1: day, month, year, hours, minutes, seconds")
        .arg(place - kMeanings.size());
}

bool FieldHeader::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QHeaderView::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int field = logicalIndexAt(help.pos());
    if (field < 0) return QHeaderView::viewportEvent(event);
    QToolTip::showText(help.globalPos(), Meaning(field), viewport());
    return true;
}

} // namespace tarvex::panel
