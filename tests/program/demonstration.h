#pragma once

#include "program/operator.h"
#include "program/program.h"

#include <QElapsedTimer>
#include <QString>

#include <filesystem>

namespace tarvex::tests
{

/// The session of an operator at the real program, by script: splash, Read Block, folder, download,
/// and a look at every form. It says what it does and what it sees, and leaves a picture of each
/// window.
class Demonstration
{
public:
    /// `folder` is where the program was started; the pictures go into "screenshots" there. `block`
    /// is the block that is read and downloaded; with `filmed` the download is pictured four times
    /// a second, as "film-00" and so on.
    Demonstration(std::filesystem::path folder, int block, bool filmed);

    /// True when the session went as it should.
    bool Run();

    /// A download from a unit that falls silent on the way, as far as its stalled wait and the
    /// close of the panel. True when it came to that.
    bool RunIntoStall();

private:
    void SeeSplash();
    void ReadBlock();
    void ChooseFolder();
    bool Download();
    void SeeStall();
    void SeeOtherForms();
    void SeeServiceForm(const char* entry, const char* form, const char* picture);
    void SeeDatabase();
    void Say(const QString& what) const;
    void Picture(QWidget* window, const QString& name) const;
    void TakeFrame();
    Operator AtPanel() const { return Operator(program_.MainForm()); }

    std::filesystem::path folder_;
    QString blockText_;
    bool filmed_;
    int frames_ = 0;
    QElapsedTimer clock_;
    BoxWatcher boxes_;
    Program program_;
};

} // namespace tarvex::tests
