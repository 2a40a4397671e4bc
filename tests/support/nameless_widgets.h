#pragma once

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QTabBar>

#include <string>
#include <vector>

namespace tarvex::tests
{

/// True for a control of the toolkit whose parts are its own.
inline bool IsWhole(const QWidget& widget)
{
    return qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QTabBar*>(&widget) != nullptr;
}

inline void CollectNameless(const QWidget& widget, const std::string& path,
                            std::vector<std::string>& all)
{
    const std::string name = widget.objectName().toStdString();
    const std::string here = path + "/" + (name.empty() ? widget.metaObject()->className() : name);
    if (name.empty()) all.push_back(here);
    if (const auto* area = qobject_cast<const QScrollArea*>(&widget); area && area->widget())
        CollectNameless(*area->widget(), here, all);
    if (IsWhole(widget)) return;
    for (const QObject* child : widget.children())
        if (child->isWidgetType()) CollectNameless(static_cast<const QWidget&>(*child), here, all);
}

/// What a walk over all windows on view has found.
struct WindowsOnView {
    int count = 0;
    std::vector<std::string> nameless; ///< where each widget without an object name is
};

inline WindowsOnView WalkWindows()
{
    WindowsOnView found;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        ++found.count;
        CollectNameless(*window, "", found.nameless);
    }
    return found;
}

} // namespace tarvex::tests
