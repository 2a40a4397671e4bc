#pragma once

#include "line/conversation_cost.h"

#include <QStringList>

#include <string>

namespace tarvex::bench
{

/// Who leads the conversation with the unit.
struct Speaker {
    std::string name;
    QString program;
    bool takesFolder = false; ///< the manager; a peer takes the device and the number of exchanges
    QStringList environment = {};
};

/// What a conversation took.
struct Talk {
    ConversationCost cost;
    double processor = 0; ///< seconds of the speaker's process alone
};

/// Starts a unit with these options, has the speaker read 210 pages of it, and measures.
/// Throws std::runtime_error when either of the two fails.
Talk Hold(const Speaker& speaker, const QStringList& unitOptions);

} // namespace tarvex::bench
