#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tarvex
{

/// A part of the panel that is shown on the screen: the code that draws it is called at every
/// change.
class Watched
{
public:
    /// Runs `changed` after every change. There is one watcher at a time: a second one is refused
    /// with std::logic_error, for it would silently take the place of the first.
    void Watch(std::function<void()> changed);

    /// No effect without a watcher.
    void Unwatch() { changed_ = nullptr; }

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

    // The two states do not affect each other; each change calls the watcher.
    /// What commands have made of the control; both are true unless it was built otherwise.
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

    /// Visible and enabled, with `initial` as its text. `maximumLength` is in bytes.
    explicit TextBox(std::size_t maximumLength = kAnyLength, std::string_view initial = {});

    /// Enabled, but not visible until a command shows it.
    static TextBox Hidden(std::size_t maximumLength = kAnyLength);

    /// Neither visible nor enabled: its text is carried out of the operator's reach.
    static TextBox OutOfReach(std::size_t maximumLength);

    /// In single bytes of the program's code page.
    const std::string& Text() const { return text_; }

    /// Cuts the text to the maximum length and calls the watcher.
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
    /// Selects the button of that index, calls the watcher, and then runs what OnClick has set.
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
    /// Clears the drawing on the screen.
    void Clear() { Changed(); }
};

} // namespace tarvex
