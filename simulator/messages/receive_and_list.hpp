// The tasks of the program `messages` that do not run the app. Each function returns the exit status of the process and
// throws messages::StoreError.
#pragma once

#include "simulator/messages/messages_options.hpp"

namespace messages {

// Prints the conversations to standard output as readable text.
int listConversations(const MessagesOptions& options);

// Stores a received message and asks the home screen of the root to show a banner. If no home screen runs, prints a
// notice to standard error.
int receiveMessage(const MessagesOptions& options);

}  // namespace messages
