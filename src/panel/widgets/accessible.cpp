#include "panel/widgets/accessible.h"

#include "panel/widgets/announcement.h"
#include "panel/widgets/wait_ground.h"

#include <QAccessibleObject>
#include <QAccessibleWidget>

#include <algorithm>

namespace tarvex::panel
{

namespace
{

/// A window of no kind that the toolkit knows; what it announces comes after its controls.
class AccessibleWindow final : public QAccessibleWidget
{
public:
    explicit AccessibleWindow(QWidget& window)
        : QAccessibleWidget(&window, window.windowType() == Qt::Dialog ? QAccessible::Dialog
                                                                       : QAccessible::Window)
    {
    }

    int childCount() const override
    {
        return QAccessibleWidget::childCount() + (Own() == nullptr ? 0 : 1);
    }

    QAccessibleInterface* child(int index) const override
    {
        if (index == QAccessibleWidget::childCount() && Own() != nullptr)
            return QAccessible::queryAccessibleInterface(Own());
        return QAccessibleWidget::child(index);
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const bool own = child != nullptr && child->object() == Own();
        return own ? QAccessibleWidget::childCount() : QAccessibleWidget::indexOfChild(child);
    }

private:
    Announcement* Own() const { return Announcement::Of(*widget()); }
};

class AccessibleAnnouncement final : public QAccessibleObject
{
public:
    explicit AccessibleAnnouncement(Announcement& announcement) : QAccessibleObject(&announcement)
    {
    }

    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(object()->parent());
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? static_cast<Announcement*>(object())->Words()
                                         : QString();
    }
};

/// The ground of the wait indicator as the bar that it is: its value is the exchanges done.
class AccessibleWait final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleWait(WaitGround& ground)
        : QAccessibleWidget(&ground, QAccessible::ProgressBar)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return std::min(Count().done, Count().expected); }
    void setCurrentValue(const QVariant&) override {}
    QVariant maximumValue() const override { return Count().expected; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    const ExchangeCount& Count() const
    {
        return static_cast<WaitGround*>(widget())->Progress().Now();
    }
};

/// The toolkit asks for each class of the object, its own first; what is no more than a QWidget has
/// nothing better to say of itself.
QAccessibleInterface* Make(const QString& className, QObject* object)
{
    if (auto* announcement = dynamic_cast<Announcement*>(object))
        return new AccessibleAnnouncement(*announcement);
    if (className != QLatin1String("QWidget")) return nullptr;
    auto& widget = static_cast<QWidget&>(*object);
    if (auto* ground = dynamic_cast<WaitGround*>(&widget)) return new AccessibleWait(*ground);
    if (widget.isWindow()) return new AccessibleWindow(widget);
    if (widget.accessibleName().isEmpty()) return nullptr;
    return new QAccessibleWidget(&widget, QAccessible::Grouping);
}

} // namespace

void DescribeToAssistiveTools()
{
    QAccessible::installFactory(Make);
}

} // namespace tarvex::panel
