#include "panel/widgets/look_style.h"

#include "panel/widgets/contrast.h"
#include "panel/widgets/look_palette.h"
#include "panel/widgets/rounded_frame.h"

#include <QLabel>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace tarvex::panel
{

namespace
{

constexpr int kEdgeWidth = 1; // a pixel at least, at every scale
constexpr int kMarkWidth = 2;
constexpr int kButtonHeight = 34; // to be hit with gloves
constexpr int kButtonMargin = 16;
constexpr int kAroundText = 14;
constexpr int kSmallestIndicator = 16;

bool Is(const QStyleOption& option, QStyle::StateFlag state)
{
    return (option.state & state) != 0;
}

void DrawEdge(QPainter& painter, const QStyleOption& option, const QBrush& ground = Qt::NoBrush)
{
    DrawRoundedFrame(painter, option.rect, {EdgeColour(option.palette), kEdgeWidth, ground});
}

/// A box that takes no typing has the ground of its window.
void DrawBox(QPainter& painter, const QStyleOption& option)
{
    const QBrush ground = option.palette.brush(Is(option, QStyle::State_ReadOnly) ? QPalette::Window
                                                                                  : QPalette::Base);
    DrawEdge(painter, option, ground);
    if (!Is(option, QStyle::State_HasFocus)) return;
    DrawRoundedFrame(painter, option.rect,
                     {MarkColour(option.palette, ground.color()), kMarkWidth});
}

/// The title is above the frame.
void DrawGroup(QPainter& painter, const QStyleOption& option)
{
    QStyleOption frame(option);
    frame.rect.setTop(option.rect.top() + option.fontMetrics.height());
    DrawEdge(painter, frame);
}

/// The selected tab is marked by more than a shade of its ground.
void MarkTab(QPainter& painter, const QStyleOption& option)
{
    DrawEdge(painter, option);
    if (!Is(option, QStyle::State_Selected)) return;
    QRect line = option.rect;
    line.setHeight(4);
    painter.fillRect(line, MarkColour(option.palette, option.palette.color(QPalette::Window)));
}

QColor ButtonGround(const QStyleOption& option)
{
    if (!Is(option, QStyle::State_Enabled)) return option.palette.color(QPalette::Window);
    const QColor ground = option.palette.color(QPalette::Button);
    const QColor text = option.palette.color(QPalette::ButtonText);
    if (Is(option, QStyle::State_Sunken) || Is(option, QStyle::State_On))
        return Between(ground, text, 0.2);
    return Is(option, QStyle::State_MouseOver) ? Between(ground, text, 0.07) : ground;
}

void DrawButton(QPainter& painter, const QStyleOption& option)
{
    DrawEdge(painter, option, ButtonGround(option));
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    if (button != nullptr && (button->features & QStyleOptionButton::DefaultButton) != 0)
        DrawRoundedFrame(painter, option.rect, {EdgeColour(option.palette), kMarkWidth});
}

void DrawRadio(QPainter& painter, const QStyleOption& option)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring = QRectF(option.rect).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(EdgeColour(option.palette), 1.5));
    painter.setBrush(option.palette.color(QPalette::Base));
    painter.drawEllipse(ring);
    if (Is(option, QStyle::State_On)) {
        const qreal inset = ring.width() / 4;
        painter.setPen(Qt::NoPen);
        painter.setBrush(option.palette.color(QPalette::Text));
        painter.drawEllipse(ring.adjusted(inset, inset, -inset, -inset));
    }
    painter.restore();
}

void DrawMark(QPainter& painter, const QStyleOption& option)
{
    const auto* mark = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
    const bool onGround =
        mark != nullptr && mark->backgroundColor.isValid() && mark->backgroundColor.alpha() > 0;
    const QColor ground = onGround ? mark->backgroundColor : option.palette.color(QPalette::Button);
    DrawRoundedFrame(painter, option.rect, {MarkColour(option.palette, ground), kMarkWidth});
}

} // namespace

LookStyle::LookStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void LookStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (widget->inherits("QTipLabel")) static_cast<QLabel*>(widget)->setTextFormat(Qt::PlainText);
}

void LookStyle::polish(QPalette& palette)
{
    QProxyStyle::polish(palette);
    palette = Contrasting(palette);
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const
{
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    const bool framed = frame == nullptr || frame->lineWidth > 0;
    if (element == PE_PanelLineEdit && framed) return DrawBox(*painter, *option);
    if (element == PE_FrameLineEdit || element == PE_Frame) return DrawEdge(*painter, *option);
    if (element == PE_FrameGroupBox) return DrawGroup(*painter, *option);
    if (element == PE_PanelButtonCommand) return DrawButton(*painter, *option);
    if (element == PE_IndicatorRadioButton) return DrawRadio(*painter, *option);
    if (element == PE_FrameFocusRect) return DrawMark(*painter, *option);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void LookStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const
{
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButtonLabel && button != nullptr) {
        QStyleOptionButton centred(*button);
        centred.text = centred.text.trimmed();
        return QProxyStyle::drawControl(element, &centred, painter, widget);
    }
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_TabBarTabShape) MarkTab(*painter, *option);
    if (element == CE_HeaderSection) {
        painter->setPen(EdgeColour(option->palette));
        painter->drawLine(option->rect.bottomLeft(), option->rect.bottomRight());
        painter->drawLine(option->rect.topRight(), option->rect.bottomRight());
    }
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const QColor edge = EdgeColour(option->palette);
    if (control == CC_ComboBox) {
        DrawEdge(*painter, *option);
        if (Is(*option, State_HasFocus))
            DrawRoundedFrame(
                *painter, option->rect,
                {MarkColour(option->palette, option->palette.color(QPalette::Button)), kMarkWidth});
    }
    if (control == CC_ScrollBar) {
        const QRect slider = subControlRect(control, option, SC_ScrollBarSlider, widget);
        DrawRoundedFrame(*painter, slider,
                         {edge, kEdgeWidth, option->palette.color(QPalette::Button)});
    }
}

QSize LookStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& content, const QWidget* widget) const
{
    QSize size = QProxyStyle::sizeFromContents(type, option, content, widget);
    if (type != CT_PushButton) return size;
    size.rwidth() += kButtonMargin;
    const int text = option == nullptr ? 0 : option->fontMetrics.height();
    size.setHeight(std::max({size.height(), kButtonHeight, text + kAroundText}));
    return size;
}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const
{
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    if (metric != PM_ExclusiveIndicatorWidth && metric != PM_ExclusiveIndicatorHeight) return usual;
    const int text = widget == nullptr ? 0 : widget->fontMetrics().ascent();
    return std::max({usual, kSmallestIndicator, text});
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* more) const
{
    if (hint == SH_FocusFrame_AboveWidget) return 1;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

} // namespace tarvex::panel
