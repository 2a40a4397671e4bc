#pragma once

#include "survey/window/plot_page.h"

#include <qcustomplot.h>

#include <functional>

namespace tarvex::survey
{

/// One page of plots that follows the pointer: a line across both channels at the pointed depth.
///
/// Wheel and drag zoom and move; the keys Up and Down point to the next depth, Plus and Minus zoom,
/// Left and Right move the values, Page Up and Page Down the depth, Home shows all again.
class PlotView : public QCustomPlot
{
public:
    /// An empty plot, which shows the depth under the pointer as it moves.
    explicit PlotView(QWidget* parent = nullptr);

    /// Called with the depth that is pointed to, in tenths of a metre.
    std::function<void(double)> depthPointed;

    /// Called after that when it was a key that pointed.
    std::function<void()> keyPointed;

    /// Shows this page in place of the one before, with all of it in view.
    void Show(PlotPage page);

    /// Points to a depth, in tenths of a metre, without calling `depthPointed`.
    void PointTo(double tenths);

    /// The depth that is pointed to, in tenths of a metre.
    double Pointed() const { return pointed_; }

    /// True once a depth was pointed to by hand.
    bool IsPointed() const { return isPointed_; }

    /// What the axes show, one range each.
    using View = std::vector<QCPRange>;

    /// What they show after a zoom or a move; nothing where all is in view.
    View Zoomed() const;

    /// Shows this again; nothing changes for an empty view.
    void ReturnTo(const View& view);

    /// The page shown.
    const PlotPage& Page() const { return page_; }

    /// Room for the legends and for some depths below them: reckoning that for every other text
    /// takes longer than drawing them.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Redraw();
    void ShowAll();
    std::vector<QCPAxis*> Axes() const;
    View Shown() const;
    void DrawSoon();
    void FitTexts();
    void FitTicks();
    void FitTitles();
    void FitMinimum();
    void AddPointer();
    void ShareDepth();
    void Point(double tenths);
    void BringIntoView(double tenths);
    void Step(int direction);
    void Zoom(double factor);
    void Move(QCPAxis::AxisType type, double part);

    PlotPage page_;
    View whole_;
    double pointed_ = 0; // tenths
    bool isPointed_ = false;
    std::vector<QCPItemStraightLine*> pointers_;
};

} // namespace tarvex::survey
