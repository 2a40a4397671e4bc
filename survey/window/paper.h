#pragma once

#include <QSizeF>
#include <QString>
#include <QStringList>

class QCPPainter;

namespace tarvex::survey
{

/// Lengths on paper are in 1/96 inch, as a screen has them.
inline constexpr double kPaperUnits = 96;

/// Height of a line of text.
inline constexpr double kLineHeight = 13;

/// A painter that goes down one sheet.
class Paper
{
public:
    /// Draws with `painter` on a sheet of that size.
    Paper(QCPPainter& painter, QSizeF size) : painter_(painter), size_(size) {}

    /// The letters of the texts that follow, by their height.
    void SetFont(double pixels, bool bold = false);

    /// How wide a text is in these letters.
    double WidthOf(const QString& text) const;

    /// A text at a place of the sheet, wherever the painter is.
    void TextAt(double x, double y, const QString& text);

    /// The lines of a text that is as wide as the sheet at most; what is more than `most` of them
    /// ends in an ellipsis.
    QStringList Wrapped(const QString& text, qsizetype most) const;

    /// A text on the next lines, `most` at most.
    void Lines(const QString& text, qsizetype most = 2);

    /// Leaves so much room.
    void Skip(double height) { down_ += height; }

    double Down() const { return down_; }
    double Width() const { return size_.width(); }
    double Height() const { return size_.height(); }
    QCPPainter& Painter() { return painter_; }

private:
    QCPPainter& painter_;
    QSizeF size_;
    double scale_ = 1;
    double down_ = 0;
};

} // namespace tarvex::survey
