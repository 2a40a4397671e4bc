#pragma once

#include "panel/survey/database_forms_test.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <algorithm>
#include <string>

namespace tarvex::tests
{

/// The grid on three tubes of one dam.
class Form5Test : public DatabaseFormsTest
{
protected:
    Form5Test()
    {
        for (const auto* const tube : {"T1", "T2", "T3"}) {
            BlockHeader header = DamHeader("00", "", "");
            header.tubo = tube;
            AddRow(TubeRow(header));
        }
        forms.ShowGrid();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Window("Form5")));
    }

    static bool IsEditing()
    {
        const auto edits = Grid().findChildren<QLineEdit*>();
        return std::any_of(edits.begin(), edits.end(),
                           [](const QLineEdit* edit) { return edit->isVisible(); });
    }

    static std::string EditedText()
    {
        for (const QLineEdit* edit : Grid().findChildren<QLineEdit*>())
            if (edit->isVisible()) return edit->text().toStdString();
        return {};
    }

    /// The line that says why a mark is not stored, while it is on view.
    static std::string Notice()
    {
        const auto& notice = Control<QLabel>("Form5", "notice");
        return notice.isVisible() ? notice.text().toStdString() : "";
    }

    static int CurrentRow() { return Grid().currentIndex().row(); }

    static std::string CurrentField()
    {
        const auto column = Grid().currentIndex().column();
        return std::string(kSurveyFields.at(static_cast<std::size_t>(column)));
    }

    static void DoubleClick(int row, std::string_view field)
    {
        const int column = static_cast<int>(FieldIndex(field));
        const QRect cell = Grid().visualRect(Grid().model()->index(row, column));
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, cell.center());
        QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, cell.center());
    }

    static void GoTo(int row, std::string_view field)
    {
        Grid().setCurrentIndex(Grid().model()->index(row, static_cast<int>(FieldIndex(field))));
    }
};

} // namespace tarvex::tests
