#pragma once

#include "core/handlers.h"

#include <QWidget>

#include <functional>

namespace tarvex::panel
{

/// `Form4`, the database panel: three buttons, each of which runs a handler. Deletes itself when
/// closed.
class Form4 : public QWidget
{
public:
    struct Actions {
        std::function<void()> readHeaders;
        std::function<void()> writeHeaders;
        std::function<void()> displayDatabase;
    };

    /// Runs each action through `handlers`, which must outlive the form.
    Form4(Handlers& handlers, const Actions& actions, QWidget* parent);

private:
    void AddButton(const char* name, const char* caption, std::function<void()> action);

    Handlers& handlers_;
};

} // namespace tarvex::panel
