// Everything the library changes in the platform's classes.
#pragma once

// Installs every row, in order. Once, at start-up.
void installHookTable();
