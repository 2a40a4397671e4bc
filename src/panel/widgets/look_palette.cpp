#include "panel/widgets/look_palette.h"

#include "panel/widgets/contrast.h"

#include <utility>

namespace tarvex::panel
{

namespace
{

// The guidelines ask for 4.5 and 3. Smoothed edges and screens in the sun take some of it away.
constexpr double kText = 7;
constexpr double kDisabledText = 5;
constexpr double kEdge = 4.5;

constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> kTextsOnGrounds[] = {
    {QPalette::HighlightedText, QPalette::Highlight},
    {QPalette::ToolTipText, QPalette::ToolTipBase},
    {QPalette::PlaceholderText, QPalette::Base},
    {QPalette::Link, QPalette::Base},
    {QPalette::LinkVisited, QPalette::Base}};

constexpr QPalette::ColorRole kPlainTexts[] = {QPalette::WindowText, QPalette::Text,
                                               QPalette::ButtonText};

bool IsLight(const QPalette& palette)
{
    return palette.color(QPalette::Active, QPalette::Window).lightness() > 127;
}

QColor PlainText(const QPalette& palette, QPalette::ColorGroup group)
{
    const QColor full = IsLight(palette) ? Qt::black : Qt::white;
    if (group != QPalette::Disabled) return full;
    // What is disabled lies on the grounds of what is not as well.
    return SetOff(IsLight(palette) ? QColor(0x6b, 0x6b, 0x6b) : QColor(0xa0, 0xa0, 0xa0),
                  {palette.color(QPalette::Active, QPalette::Window),
                   palette.color(QPalette::Active, QPalette::Base),
                   palette.color(QPalette::Active, QPalette::Button),
                   palette.color(group, QPalette::Window), palette.color(group, QPalette::Base),
                   palette.color(group, QPalette::Button)},
                  kDisabledText);
}

void Improve(QPalette& palette, QPalette::ColorGroup group, QPalette::ColorRole role,
             const QColor& colour)
{
    if (palette.color(group, role) != colour) palette.setColor(group, role, colour);
}

} // namespace

QPalette Contrasting(QPalette palette)
{
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor plain = PlainText(palette, group);
        for (const auto role : kPlainTexts)
            Improve(palette, group, role, plain);
        for (const auto& [text, ground] : kTextsOnGrounds) {
            const QColor opaque(palette.color(group, text).rgb());
            Improve(palette, group, text,
                    SetOff(opaque, {palette.color(group, ground)},
                           group == QPalette::Disabled ? kDisabledText : kText));
        }
    }
    return palette;
}

namespace
{

QColor MadeEdgeColour(const QPalette& palette)
{
    const auto colour = [&](QPalette::ColorRole role) {
        return palette.color(QPalette::Active, role);
    };
    const QColor window = colour(QPalette::Window);
    const QColor calm = Between(window, IsLight(palette) ? Qt::black : Qt::white, 0.5);
    return SetOff(calm, {window, colour(QPalette::Base), colour(QPalette::Button)}, kEdge);
}

} // namespace

/// Kept, for it is asked for at every painting of every control, most of which have one palette.
QColor EdgeColour(const QPalette& palette)
{
    static qint64 madeFor = 0;
    static QColor edge;
    if (palette.cacheKey() != madeFor) {
        edge = MadeEdgeColour(palette);
        madeFor = palette.cacheKey();
    }
    return edge;
}

QColor MarkColour(const QPalette& palette, const QColor& ground)
{
    return SetOff(palette.color(QPalette::Active, QPalette::Highlight),
                  {palette.color(QPalette::Active, QPalette::Window), ground}, kEdge);
}

WaitColours WaitColoursOf(const QPalette& palette)
{
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    if (IsLight(palette)) return {QColor(0xff, 0xf3, 0xd0), QColor(0xc8, 0x74, 0x00), text};
    return {QColor(0x15, 0x0f, 0x03), QColor(0x95, 0x53, 0x00), text};
}

} // namespace tarvex::panel
