// -[NSBundle pathForResource:ofType:] for names that lead into folders.
#pragma once

namespace foundation {

// The phone finds "glyphs/black/mail" in the bundle's folders; GNUstep only looks for a file of that whole name.
void installResourcePaths();

}  // namespace foundation
