#include "common/target.h"

#include "conversation/conversation.h"

void tarvex::fuzz::RunInput(std::string_view input)
{
    Choices choices(input);
    Conversation(choices).Run();
}
