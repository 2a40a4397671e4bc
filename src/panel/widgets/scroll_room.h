#pragma once

#include <QScrollArea>

namespace tarvex::panel
{

/// Room for contents that may be larger than their screen. It asks for all that they need, and
/// where it gets less it scrolls, so that the control with the focus is always in sight.
class ScrollRoom final : public QScrollArea
{
public:
    /// Takes the content as its own.
    ScrollRoom(QWidget& content, QWidget& parent);
    ~ScrollRoom() override;
    ScrollRoom(const ScrollRoom&) = delete;
    ScrollRoom& operator=(const ScrollRoom&) = delete;

    /// Whether it needs no scrolling at the size that it has.
    bool ShowsAll() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Follow(QWidget* focused);

    QMetaObject::Connection following_;
};

} // namespace tarvex::panel
