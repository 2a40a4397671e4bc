#include "panel/forms/picture.h"

#include <QImage>
#include <QPixmap>

#include <gtest/gtest.h>

#include <cstdlib>

namespace tarvex::tests
{

namespace
{
/// Mean difference of two pictures of one size, in steps of 255 of a colour channel.
double MeanDifference(const QImage& one, const QImage& other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) +
                   std::abs(qBlue(a) - qBlue(b)) + std::abs(qAlpha(a) - qAlpha(b));
        }
    }
    return sum / (4.0 * one.width() * one.height());
}
} // namespace

class ProgramIconOfSize : public ::testing::TestWithParam<int>
{
};

TEST_P(ProgramIconOfSize, IsTheOneThatThePackageInstalls)
{
    const int size = GetParam();
    const QString name =
        QString(TARVEX_PACKAGED_ICONS "/%1x%1/example.tarvex.Manager.png").arg(size);
    const QImage packaged = QImage(name).convertToFormat(QImage::Format_ARGB32);
    const QImage drawn =
        panel::ProgramIcon().pixmap(size, size).toImage().convertToFormat(QImage::Format_ARGB32);
    ASSERT_EQ(packaged.size(), QSize(size, size)) << name.toStdString();
    ASSERT_EQ(drawn.size(), packaged.size());
    EXPECT_LT(MeanDifference(packaged, drawn), 4.0); // edges may be smoothed in another way
}

// The sizes that the program draws itself; the others are scaled from these, and drawn in the
// package.
INSTANTIATE_TEST_SUITE_P(Sizes, ProgramIconOfSize, ::testing::Values(16, 24, 32, 48, 64, 128));

} // namespace tarvex::tests
