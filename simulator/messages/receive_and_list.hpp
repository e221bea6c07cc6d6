// What the Messages program does beside being the app: it prints the conversations, and stands for messages that
// arrive.
#pragma once

#include "simulator/messages/messages_options.hpp"

namespace messages {

// Prints them for a person on standard output. Both throw messages::StoreError and answer the process's exit status.
int listConversations(const MessagesOptions& options);

// Stores the message and has the home screen of the root show it.
int receiveMessage(const MessagesOptions& options);

}  // namespace messages
