#pragma once

#include "survey/downloads.h"
#include "survey/window/main_window.h"
#include "survey/window/plot_view.h"

#include <gtest/gtest.h>

#include <QLabel>

#include <stdexcept>
#include <string>

namespace tarvex::survey
{

/// The window, and a folder with three readings of one tube that moves.
class WindowTest : public ::testing::Test
{
protected:
    WindowTest()
    {
        for (const int number : {0, 1, 2})
            tests::Download(folder_.Path(), "1:depth=20,moved=" + std::to_string(number) +
                                                ",nlet=0" + std::to_string(number));
    }

    template <class Widget>
    Widget& Find(const char* name)
    {
        auto* const widget = window_.findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr) throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }

    std::string Verdict() { return Find<QLabel>("verdict").text().toStdString(); }
    PlotView& Plot() { return Find<PlotView>("plot"); }

    tests::TemporaryFolder folder_;
    MainWindow window_;
};

} // namespace tarvex::survey
