#include "project/text_pipeline.h"

#include <algorithm>
#include <thread>

#include "text/number_line.h"

namespace quorlin {

namespace {
// Small enough to format while the part before is written; large enough that
// starting its thread costs little.
constexpr std::size_t kPixelsPerPart = std::size_t{1} << 18;
// Parts formatted ahead of the one being written: with one part per core, the cores
// sat idle whenever the writing caught up with the formatting.
constexpr std::size_t kPartsAheadPerCore = 4;
}  // namespace

TextPipeline::TextPipeline(Sink sink)
    : sink_(std::move(sink)), cores_(std::max(1u, std::thread::hardware_concurrency())) {}

bool TextPipeline::add(std::span<const char> text) {
    if (failed_ || text.empty()) return !failed_;
    if (queue_.empty()) {
        failed_ = !sink_(text);
        return !failed_;
    }
    Part& part = queued();
    std::copy(text.begin(), text.end(), part.text.ofAtLeast(text.size()));
    part.used = text.size();
    return true;
}

bool TextPipeline::addPixels(int columns, std::size_t height, const ColumnSource& source) {
    const std::size_t perPart = std::max<std::size_t>(1, kPixelsPerPart / height);
    for (std::size_t from = 0; from < static_cast<std::size_t>(columns); from += perPart) {
        while (!failed_ && formatting_ >= kPartsAheadPerCore * cores_) writeOldest();
        if (failed_) return false;
        const auto to = static_cast<int>(std::min<std::size_t>(columns, from + perPart));
        Part& part = queued();
        // Where no thread can be started, the part is formatted when its turn to be written comes.
        part.formatting = std::async(std::launch::async | std::launch::deferred,
                                     [&part, from = static_cast<int>(from), to, height, source] {
                                         format(part, from, to, height, source);
                                     });
        ++formatting_;
    }
    return !failed_;
}

bool TextPipeline::finish() {
    while (!failed_ && !queue_.empty()) writeOldest();
    return !failed_;
}

TextPipeline::Part& TextPipeline::queued() {
    Part& part = queue_.emplace_back();
    if (!spare_.empty()) {
        part.text = std::move(spare_.back());
        spare_.pop_back();
    }
    return part;
}

// A failed write leaves the rest queued: their ends wait for the parts still formatting.
void TextPipeline::writeOldest() {
    Part& part = queue_.front();
    if (part.formatting.valid()) {
        part.formatting.get();
        --formatting_;
    }
    failed_ = !sink_({part.text.bytes.get(), part.used});
    spare_.push_back(std::move(part.text));
    queue_.pop_front();
}

void TextPipeline::format(Part& part, int from, int to, std::size_t height, const ColumnSource& source) {
    char* const start = part.text.ofAtLeast(static_cast<std::size_t>(to - from) * height * kLongestNumberLine);
    std::vector<Colour> scratch(height);
    char* at = start;
    for (int x = from; x < to; ++x)
        for (Colour colour : source(x, scratch)) at = numberLine(at, colour);
    part.used = static_cast<std::size_t>(at - start);
}

char* TextPipeline::Buffer::ofAtLeast(std::size_t size) {
    if (room < size) {
        bytes = std::make_unique_for_overwrite<char[]>(size);
        room = size;
    }
    return bytes.get();
}

}  // namespace quorlin
