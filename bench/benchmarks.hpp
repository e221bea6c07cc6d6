// The benchmarks. Each one prints ratios to standard output. Each measurement with a phone runs in its own child
// process, because a process can contain only one phone.
#pragma once

namespace bench {

// Presenting notifications: the time and memory with Brim compared to without, and of late compared to early banners.
void measurePresenting();
// Dragging a banner: the time of one move, compared to the time of painting the whole screen.
void measureDragging();
// Presenting ten thousand banners in sequence: the time and memory of late banners compared to early banners.
void measureBannerLifetime();
// Measuring text: the time for cached text compared to new text, and for very long text compared to short text.
void measureText();
// Finding the pictures of senders: the time per container and per contact, and the time that a download takes on the
// main thread.
void measurePhotos();
// Replying: the time until the message is in the Messages app's store, compared to the time that the delivery of a
// notification to another process takes.
void measureReplying();

}  // namespace bench
