#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvex
{

/// A part of the panel that somebody shows: whoever draws it is told of every change.
class Watched
{
public:
    void Watch(std::function<void()> changed) { changed_ = std::move(changed); }

protected:
    void Changed() const
    {
        if (changed_) changed_();
    }

private:
    std::function<void()> changed_;
};

/// A control that commands show, hide, enable or disable.
class Control : public Watched
{
public:
    Control() = default;
    Control(bool visible, bool enabled) : visible_(visible), enabled_(enabled) {}

    bool Visible() const { return visible_; }
    bool Enabled() const { return enabled_; }
    void Show() { SetVisible(true); }
    void Hide() { SetVisible(false); }
    void Enable() { SetEnabled(true); }
    void Disable() { SetEnabled(false); }

private:
    void SetVisible(bool visible);
    void SetEnabled(bool enabled);

    bool visible_ = true;
    bool enabled_ = true;
};

/// A text box: its text is working state of the program. Every text assigned to it, typed or not,
/// is cut to its maximum length in bytes; the widths on the line depend on that.
class TextBox : public Control
{
public:
    static constexpr std::size_t kAnyLength = std::string::npos;

    explicit TextBox(std::size_t maximumLength = kAnyLength, std::string_view initial = {});
    static TextBox Hidden(std::size_t maximumLength = kAnyLength);

    /// Neither visible nor enabled: its text is carried out of the operator's reach.
    static TextBox OutOfReach(std::size_t maximumLength);

    const std::string& Text() const { return text_; }
    void SetText(std::string_view text);
    std::size_t MaximumLength() const { return maximumLength_; }

private:
    std::size_t maximumLength_;
    std::string text_;
};

/// A group of option buttons of which at most one is selected.
class OptionGroup : public Watched
{
public:
    /// Run at every selection, by the operator or by the program, with the button's index from 0.
    void OnClick(std::function<void(int)> clicked) { clicked_ = std::move(clicked); }

    /// The selected button's index, or -1.
    int Selected() const { return selected_; }
    void Select(int index);

private:
    std::function<void(int)> clicked_;
    int selected_ = -1;
};

/// A drawing area that commands only ever clear.
class Picture : public Control
{
public:
    Picture() : Control(false, true) {}
    void Clear() { Changed(); }
};

/// The six boxes of the unit's clock, two digits each.
struct ClockBoxes {
    TextBox Text13a{2}; ///< day
    TextBox Text1a{2};  ///< month
    TextBox Text2a{2};  ///< year
    TextBox Text14a{2}; ///< hours
    TextBox Text3a{2};  ///< minutes
    TextBox Text4a{2};  ///< seconds
};

/// The state of the main form `Scaricodati`. Its boxes are no view of the header table but working
/// state of their own: commands read and write them, and frames are built from them.
struct Panel {
    // The header of one block.
    TextBox Text2{2, "01"};             ///< block number
    TextBox Text3{8};                   ///< `cliente`
    TextBox Text4{8};                   ///< `cantiere`
    TextBox Text5{4};                   ///< `tubo`
    TextBox Text6{3};                   ///< `profondità`, whole metres
    TextBox Text13{1, "0"};             ///< `profondità`, tenths
    TextBox Text7{1};                   ///< `passo`
    TextBox Text8{1, "2"};              ///< `guide`
    TextBox Text9{4};                   ///< `nord`
    TextBox Text10{2};                  ///< `nlet`
    TextBox Text11{6};                  ///< `data`
    TextBox Text12{6};                  ///< `ora`
    TextBox Text15 = TextBox::Hidden(); ///< the header file's path

    // The calibration: carried out of sight.
    TextBox Text18 = TextBox::OutOfReach(7); ///< `gain1`
    TextBox Text19 = TextBox::OutOfReach(7); ///< `gain2`
    TextBox Text20 = TextBox::OutOfReach(7); ///< `zero1`
    TextBox Text21 = TextBox::OutOfReach(7); ///< `zero2`
    TextBox Text22 = TextBox::OutOfReach(1); ///< `punto`

    // The download.
    TextBox numblocco{2, "01"}; ///< block to download
    TextBox Text1;              ///< the report file in work
    TextBox Text17;             ///< the address of the page being read
    Picture Picture1;

    // The unit's settings.
    ClockBoxes Clock;
    TextBox Text16rt{6, "3"}; ///< delay of the automatic cycle
    OptionGroup ssOption1;    ///< serial port, "Com 1" to "Com 4"

    // The wait indicator.
    Control Label34{false, true};
    Control Shape1{false, true};

    // The frames behind the tabs.
    Control Frame1;
    Control Frame2{false, true};
    Control Frame3{false, true};

    // Buttons that commands enable or disable, or that start hidden.
    Control sscommand9{true, false};
    Control sscommand10{true, false};
    Control sscommand6;
    Control Command3;
    Control Command6;
    Control Command4{false, true};
    Control Command7;
    Control command3d1{true, false};
    Control Command5{false, true};
    Control Command9{false, true};
    Control command3d3{false, true};
    Control sscommand1{false, true};
    Control sscommand5{false, true};
    Control ssCommand2{false, true};
};

} // namespace tarvex
