#pragma once

#include <QHeaderView>

namespace tarvex::panel
{

/// The head of the survey rows: a tool tip tells what each field holds.
class FieldHeader final : public QHeaderView
{
public:
    /// The head of the columns of `parent`, the grid.
    explicit FieldHeader(QWidget* parent);

    /// What the field of that place in a survey row holds.
    static QString Meaning(int field);

protected:
    bool viewportEvent(QEvent* event) override;
};

} // namespace tarvex::panel
