#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <future>
#include <span>
#include <vector>

#include "ports/screen_reader.h"

namespace quorlin {

// The text of a project file on its way to the stream, in order. Formatting pixels costs
// more than writing them, so parts of pictures are formatted on every core ahead of the
// writing, across pictures and the lines between them.
class TextPipeline {
public:
    // The pixels of column `x`, top down: where they lie in a store, or copied into
    // `scratch`, which has room for a column. Called on other threads.
    using ColumnSource = std::function<std::span<const Colour>(int x, std::span<Colour> scratch)>;
    using Sink = std::function<bool(std::span<const char> text)>;

    explicit TextPipeline(Sink sink);

    // Each is false once the sink has failed; nothing more reaches it then. Text added
    // may be written later: `finish` writes what is still queued.
    bool add(std::span<const char> text);
    // The number lines of the pixels, column by column, of a picture at least one pixel in
    // each direction. What `source` reads must stay as it is until `finish`.
    bool addPixels(int columns, std::size_t height, const ColumnSource& source);
    bool finish();

private:
    // Text buffers are kept for the next parts, and never filled with zeros first: that
    // alone would cost a good share of a large save.
    struct Buffer {
        std::unique_ptr<char[]> bytes;
        std::size_t room = 0;
        char* ofAtLeast(std::size_t size);
    };
    struct Part {
        Buffer text;
        std::size_t used = 0;
        // Last, so that a part still being formatted is waited for before its text goes.
        std::future<void> formatting;
    };
    Part& queued();
    void writeOldest();
    static void format(Part& part, int from, int to, std::size_t height, const ColumnSource& source);

    Sink sink_;
    std::size_t cores_;
    std::size_t formatting_ = 0;
    bool failed_ = false;
    std::vector<Buffer> spare_;
    std::deque<Part> queue_;
};

}  // namespace quorlin
