// -[NSBundle pathForResource:ofType:] for names that contain a folder.
#pragma once

namespace foundation {

// Replaces the method, so that it finds "glyphs/black/mail" in the bundle's subfolders as on the phone. GNUstep's own
// searches for a file whose whole name is "glyphs/black/mail". Main thread, once.
void installResourcePaths();

}  // namespace foundation
