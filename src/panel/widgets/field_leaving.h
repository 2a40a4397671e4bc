#pragma once

#include "core/handlers.h"
#include "core/message_boxes.h"
#include "panel/widgets/kept_press.h"

#include <QObject>

#include <functional>
#include <vector>

namespace tarvex::panel
{

class BoxEdit;

/// Runs the rules of one window's fields, each once when its field is left for another control of
/// the window. A window that is not active moves its focus without the field noticing, and some
/// desktops activate a window only after the press that was meant to: so it is looked after at each
/// press and key, and must be asked before a command reads the boxes.
class FieldLeaving final : public QObject
{
public:
    /// Rules run through `handlers` and show their boxes with `messages`.
    FieldLeaving(Handlers& handlers, MessageBoxes& messages);

    /// A rule shows its boxes with the ones that it is given.
    using Rule = std::function<void(MessageBoxes&)>;

    /// Looks after a field of the window; it is detached before this object goes.
    void Watch(BoxEdit& edit) { edits_.push_back(&edit); }

    /// Runs `rule` each time that the field is left.
    void RunOnLeaving(BoxEdit& edit, Rule rule);

    /// Runs the rules of the fields that have been left without notice.
    void CatchUp();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CatchUp(Qt::FocusReason reason);
    void Leave(BoxEdit& edit, const Rule& rule, Qt::FocusReason reason);

    Handlers& handlers_;
    MessageBoxes& messages_;
    KeptPress keptPress_;
    std::vector<BoxEdit*> edits_;
};

} // namespace tarvex::panel
