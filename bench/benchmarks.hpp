// The benchmarks. Each one prints ratios to standard output. Each measurement with a phone runs in its own child
// process, because a process can contain only one phone.
#pragma once

namespace bench {

// Presenting notifications: with Brim compared to without, and late banners compared to early ones, in time and memory.
void measurePresenting();
// Dragging a banner: the time of one move, compared to the time of painting the whole screen.
void measureDragging();
// Ten thousand banners one after another: the time and memory of late banners compared to early ones.
void measureBannerLifetime();
// Measuring text: known text compared to new text, and very long text compared to short text.
void measureText();
// Finding the pictures of senders: the time per container and per contact, and the time that a download takes on the
// main thread.
void measurePhotos();
// Replying: the time until the message is in the Messages app's store, compared to the time that a notification takes
// from one process to another.
void measureReplying();

}  // namespace bench
