#pragma once

#include <QScrollArea>
#include <QSize>

namespace tarvex::survey
{

/// The size that a window may have at most, so that it and its frame lie within the free part of
/// the screen that it opens on.
QSize FreeSize(const QWidget& inWindow);

/// Room for contents that may be larger than their screen: it holds no window open, and where they
/// get less than they need it scrolls to the control that gets the focus.
class Room : public QScrollArea
{
public:
    /// Takes the contents as its own.
    Room(QWidget* contents, QWidget* parent);
    ~Room() override;
    Room(const Room&) = delete;
    Room& operator=(const Room&) = delete;

    QSize minimumSizeHint() const override;

private:
    void Show(const QWidget& control);

    QMetaObject::Connection following_;
};

} // namespace tarvex::survey
