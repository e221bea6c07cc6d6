// The benchmarks. Each prints ratios to standard output. Each phone runs in a child process, because a process can
// contain only one phone.
#pragma once

namespace bench {

// Presenting notifications: with Brim compared to without, and late banners compared to early ones, in time and memory.
void measurePresenting();
// Dragging a banner: the cost of one move, compared to painting the whole screen.
void measureDragging();
// Ten thousand banners one after another: the time and memory of late banners compared to early ones.
void measureBannerLifetime();
// Measuring text: known text compared to new text, and very long text compared to short text.
void measureText();
// Finding the pictures of senders: the cost per container and contact, and the cost of a download for the main thread.
void measurePhotos();
// Replying: the time until the message is in the Messages app's store, compared to a notification between two
// processes.
void measureReplying();

}  // namespace bench
