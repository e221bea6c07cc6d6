// Makes -[NSBundle pathForResource:ofType:] accept names that contain a folder.
#pragma once

namespace foundation {

// Replaces the method. The new method finds "glyphs/black/mail" in the subfolders of the bundle, as on the phone.
// GNUstep's own method searches for a file whose complete name is "glyphs/black/mail". Call this once. Main thread.
void installResourcePaths();

}  // namespace foundation
