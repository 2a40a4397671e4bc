#include "platform/qt_shell.h"

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

#include <gtest/gtest.h>

namespace tarvex::tests
{

/// Stands for the desktop: remembers the addresses it is asked to open.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop()
    {
        QDesktopServices::setUrlHandler("https", this, "Take");
        QDesktopServices::setUrlHandler("file", this, "Take");
    }
    ~Desktop() override
    {
        QDesktopServices::unsetUrlHandler("https");
        QDesktopServices::unsetUrlHandler("file");
    }

    QList<QUrl> opened;

    Q_INVOKABLE void Take(const QUrl& url) { opened.push_back(url); }
};

namespace
{

TEST(Shell, HandsAWebAddressToTheDesktop)
{
    const Desktop desktop;
    platform::QtShell().Execute(
        {"open", "https://www.maker.example/manuals/manual.pdf", "", "/opt/manual.pdf", 0});
    EXPECT_EQ(desktop.opened, QList<QUrl>{QUrl("https://www.maker.example/manuals/manual.pdf")});
}

TEST(Shell, HandsAFileToTheDesktopWithItsNameInTheProgramsCodePage)
{
    const Desktop desktop;
    platform::QtShell().Execute({"open", "/tmp/profondit\xE0 100%.txt", "", "", 0});
    EXPECT_EQ(desktop.opened,
              QList<QUrl>{QUrl::fromLocalFile(QString::fromUtf8("/tmp/profondità 100%.txt"))});
}

TEST(Shell, KnowsNoOtherOperation)
{
    const Desktop desktop;
    platform::QtShell().Execute({"print", "/tmp/report.txt", "", "", 0});
    EXPECT_TRUE(desktop.opened.isEmpty());
}

TEST(Shell, PassesOverAnAddressThatNothingOpens)
{
    EXPECT_NO_THROW(platform::QtShell().Execute({"open", "no-such-scheme://x", "", "", 0}));
    EXPECT_NO_THROW(platform::QtShell().Execute({"open", "", "", "", 0}));
}

} // namespace
} // namespace tarvex::tests

#include "shell_test.moc"
