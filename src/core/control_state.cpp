#include "core/control_state.h"

#include <stdexcept>

namespace tarvex
{

void Watched::Watch(std::function<void()> changed)
{
    if (changed_) throw std::logic_error("watched already");
    changed_ = std::move(changed);
}

void Control::SetVisible(bool visible)
{
    visible_ = visible;
    Changed();
}

void Control::SetEnabled(bool enabled)
{
    enabled_ = enabled;
    Changed();
}

TextBox::TextBox(std::size_t maximumLength, std::string_view initial)
    : maximumLength_(maximumLength), text_(initial.substr(0, maximumLength))
{
}

TextBox TextBox::Hidden(std::size_t maximumLength)
{
    TextBox box(maximumLength);
    box.Hide();
    return box;
}

TextBox TextBox::OutOfReach(std::size_t maximumLength)
{
    TextBox box = Hidden(maximumLength);
    box.Disable();
    return box;
}

void TextBox::SetText(std::string_view text)
{
    text_ = text.substr(0, maximumLength_);
    Changed();
}

void OptionGroup::Select(int index)
{
    selected_ = index;
    Changed();
    if (clicked_) clicked_(index);
}

} // namespace tarvex
