#include "project/pixel_text.h"

#include <algorithm>
#include <future>
#include <thread>

namespace quorlin {

namespace {
// Small enough to format while the part before is written; large enough that
// starting its thread costs little.
constexpr std::size_t kPixelsPerPart = std::size_t{1} << 18;
}  // namespace

// Eight bytes of room past the end: writeEightDigits always stores a whole word.
void PixelText::format(Part& part, int from, int to, std::size_t height, const ColumnSource& source) {
    const std::size_t room = static_cast<std::size_t>(to - from) * height * kLongestNumberLine + 8;
    if (part.text.size() < room) part.text.resize(room);
    std::vector<Colour> column(height);
    char* at = part.text.data();
    for (int x = from; x < to; ++x) {
        source(x, column);
        for (Colour colour : column) at = numberLine(at, colour);
    }
    part.used = static_cast<std::size_t>(at - part.text.data());
}

// Parts are formatted ahead, as many at once as there are cores, while the finished
// ones are written in order.
bool PixelText::write(int columns, std::size_t height, const ColumnSource& source, const Sink& sink) {
    if (columns <= 0 || height == 0) return true;
    const std::size_t columnsPerPart = std::max<std::size_t>(1, kPixelsPerPart / height);
    const auto parts = static_cast<int>((static_cast<std::size_t>(columns) + columnsPerPart - 1) / columnsPerPart);
    const int ahead = std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, parts);
    if (parts_.size() < static_cast<std::size_t>(ahead)) parts_.resize(static_cast<std::size_t>(ahead));
    const auto start = [&](int p) {
        const auto from = static_cast<int>(static_cast<std::size_t>(p) * columnsPerPart);
        const int to = std::min(columns, static_cast<int>(static_cast<std::size_t>(p + 1) * columnsPerPart));
        Part& part = parts_[static_cast<std::size_t>(p % ahead)];
        const auto policy = parts == 1 ? std::launch::deferred : std::launch::async | std::launch::deferred;
        return std::async(policy, [=, this, &part, &source] { format(part, from, to, height, source); });
    };
    std::vector<std::future<void>> formatting;
    for (int p = 0; p < ahead; ++p) formatting.push_back(start(p));
    // On a failed write, the futures' ends wait for the parts still being formatted.
    for (int p = 0; p < parts; ++p) {
        auto& slot = formatting[static_cast<std::size_t>(p % ahead)];
        slot.get();
        const Part& part = parts_[static_cast<std::size_t>(p % ahead)];
        if (!sink({part.text.data(), part.used})) return false;
        if (p + ahead < parts) slot = start(p + ahead);
    }
    return true;
}

}  // namespace quorlin
