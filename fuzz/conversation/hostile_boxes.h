#pragma once

#include "common/choices.h"
#include "core/message_boxes.h"
#include "support/virtual_world.h"

namespace tarvex::fuzz
{

/// An operator who answers each box by choice, some time after it has come. Everything else goes on
/// meanwhile, as it does under a box of the toolkit.
class HostileBoxes : public MessageBoxes
{
public:
    HostileBoxes(tests::VirtualWorld& world, Choices& choices) : world_(world), choices_(choices) {}

    void Critical(std::string_view text, std::string_view title) override;
    bool AskOkCancel(std::string_view text) override;

private:
    void Show(std::string_view text);

    tests::VirtualWorld& world_;
    Choices& choices_;
};

} // namespace tarvex::fuzz
