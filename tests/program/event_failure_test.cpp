#include "program/program_test.h"

#include "support/toolkit_leaks.h"

#include <QAbstractListModel>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QSocketNotifier>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QtTest>

#include <stdexcept>
#include <unistd.h>

namespace tarvex::tests
{
namespace
{

[[noreturn]] void Fail()
{
    throw std::length_error("too long");
}

/// An exception of the standard library out of every kind of event that the toolkit has.
class EventFailureTest : public ProgramTest
{
protected:
    void ExpectRunTimeError()
    {
        EXPECT_TRUE(WaitFor([&] { return program->End().Ended(); }));
        EXPECT_EQ(boxes.texts, QStringList{"Run-time error: too long"});
        EXPECT_EQ(program->End().Status(), 1);
    }

private:
    ToolkitMayLeak acrossIt_; // every exception here crosses the toolkit; the other tests count
};

TEST_F(EventFailureTest, OutOfATimer)
{
    StartAlone();
    QTimer::singleShot(0, program->MainForm(), Fail);
    ExpectRunTimeError();
}

TEST_F(EventFailureTest, OutOfATimerInTheWaitOfACommand)
{
    Start({"--fault", "silent@wake2+"});
    QTimer::singleShot(300, program->MainForm(), Fail);
    AtPanel().Click("Command3");
    ExpectRunTimeError();
}

TEST_F(EventFailureTest, OutOfANotifier)
{
    StartAlone();
    int ends[2] = {};
    ASSERT_EQ(::pipe(ends), 0);
    QSocketNotifier notifier(ends[0], QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, Fail);
    ASSERT_EQ(::write(ends[1], "x", 1), 1);
    ExpectRunTimeError();
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(EventFailureTest, OutOfAQueuedCall)
{
    StartAlone();
    QMetaObject::invokeMethod(program->MainForm(), Fail, Qt::QueuedConnection);
    ExpectRunTimeError();
}

TEST_F(EventFailureTest, OutOfAClick)
{
    StartAlone();
    QPushButton button;
    QObject::connect(&button, &QPushButton::clicked, &button, Fail);
    button.setObjectName(kForeignWindow);
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    ExpectRunTimeError();
}

class FailingFilter : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::KeyPress) Fail();
        return false;
    }
};

TEST_F(EventFailureTest, OutOfAnEventFilter)
{
    StartAlone();
    FailingFilter filter;
    program->MainForm()->installEventFilter(&filter);
    QTest::keyClick(program->MainForm(), Qt::Key_A);
    ExpectRunTimeError();
    program->MainForm()->removeEventFilter(&filter);
}

class FailingPaint : public QWidget
{
protected:
    void paintEvent(QPaintEvent*) override { Fail(); }
};

TEST_F(EventFailureTest, OutOfAPaint)
{
    StartAlone();
    FailingPaint widget;
    widget.setObjectName(kForeignWindow);
    widget.show();
    ExpectRunTimeError();
}

class OneRow : public QAbstractListModel
{
public:
    explicit OneRow(bool fails) : fails_(fails) {}
    int rowCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex&, int) const override
    {
        if (fails_) Fail();
        return {};
    }

private:
    bool fails_;
};

TEST_F(EventFailureTest, OutOfAModel)
{
    StartAlone();
    OneRow model(true);
    QListView view;
    view.setModel(&model);
    view.setObjectName(kForeignWindow);
    view.show();
    ExpectRunTimeError();
}

class FailingDelegate : public QStyledItemDelegate
{
public:
    void paint(QPainter*, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        Fail();
    }
};

TEST_F(EventFailureTest, OutOfADelegate)
{
    StartAlone();
    OneRow model(false);
    FailingDelegate delegate;
    QListView view;
    view.setItemDelegate(&delegate);
    view.setModel(&model);
    view.setObjectName(kForeignWindow);
    view.show();
    ExpectRunTimeError();
}

} // namespace
} // namespace tarvex::tests
