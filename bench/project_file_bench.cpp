// Saving and loading the largest project (a picture and 30 row pictures of 1001 x 1001,
// about 31 million lines) against plainly writing and reading the same bytes, in one run.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "../tests/support/test_window.h"
#include "project/atomic_file.h"
#include "project/project_reader.h"
#include "project/project_writer.h"

namespace {

using namespace quorlin;
using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

void fillLargestProject(testing::TestWindow& w) {
    WindowModel& m = w.model();
    w.frm.setCheck(Ctl::chkRecImage, 1);
    m.picture.iPicMaxX = m.picture.iPicMaxY = kPictureSide - 1;
    for (std::size_t i = 0; i < m.picture.lPixels.size(); ++i) m.picture.lPixels[i] = static_cast<Colour>(i * 2654435761u & 0xFFFFFF);
    m.fgResult.setRowCount(kMaxEntries + 1);
    for (int r = 1; r <= kMaxEntries; ++r) {
        const std::array<std::string, kGridColumns> cells{std::to_string(r), "10", "20", "Custom", "0:3:0", "Click", "1", "No", "", "Yes"};
        for (int c = 0; c < kGridColumns; ++c) m.fgResult.setCell(r, c, cells[static_cast<std::size_t>(c)]);
        m.rows.sRowCells[static_cast<std::size_t>(r)] = cells;
        m.rows.bRowImage[static_cast<std::size_t>(r)] = true;
        RowPicture& p = m.rows.lRowPixels[static_cast<std::size_t>(r)];
        p.resize(kPictureSide - 1, kPictureSide - 1);
        for (std::size_t i = 0; i < p.pixels.size(); ++i) p.pixels[i] = static_cast<Colour>((i + r) * 40503u & 0xFFFFFF);
        m.rows.lRowRect[static_cast<std::size_t>(r)] = {0, 0, 1000, 1000};
    }
    m.vFirstRowUsed = true;
}

struct Times {
    double save, plainWrite, load, plainRead;
    std::size_t lines, bytes;
};

Times measureOnce(testing::TestWindow& saving, const std::filesystem::path& ours, const std::filesystem::path& plain) {
    // Both writes make a new file on a quiet disk: the last round's pages, still being
    // written out or freed, would otherwise slow whichever side meets them.
    std::filesystem::remove(ours);
    std::filesystem::remove(plain);
    ::sync();
    auto start = Clock::now();
    writeFileAtomically(ours, [&](std::ostream& out) { return ProjectWriter(out).write(saving.model()); });
    const double save = secondsSince(start);

    std::vector<char> bytes(std::filesystem::file_size(ours));
    std::FILE* in = std::fopen(ours.c_str(), "rb");
    std::fread(bytes.data(), 1, bytes.size(), in);
    std::fclose(in);

    ::sync();
    start = Clock::now();
    std::FILE* out = std::fopen(plain.c_str(), "wb");
    std::fwrite(bytes.data(), 1, bytes.size(), out);
    std::fclose(out);
    const double plainWrite = secondsSince(start);

    testing::TestWindow loading;
    start = Clock::now();
    {
        std::ifstream file(ours, std::ios::binary);
        TrackList list(loading.model());
        ProjectReader(file, loading.model(), list).read();
    }
    const double load = secondsSince(start);

    start = Clock::now();
    std::size_t lines = 0;
    {
        std::vector<char> chunk(1 << 20);
        std::FILE* f = std::fopen(plain.c_str(), "rb");
        for (std::size_t got; (got = std::fread(chunk.data(), 1, chunk.size(), f)) > 0;)
            for (std::size_t i = 0; i < got; ++i) lines += chunk[i] == '\n';
        std::fclose(f);
    }
    const double plainRead = secondsSince(start);

    if (loading.model().fgResult.rowCount() != kMaxEntries + 1) std::printf("the project did not load whole\n");
    return {save, plainWrite, load, plainRead, lines, bytes.size()};
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const auto dir = std::filesystem::temp_directory_path() / "quorlin-project-bench";
    std::filesystem::create_directories(dir);
    testing::TestWindow saving;
    fillLargestProject(saving);
    // The page cache makes single writes noisy: the best of the rounds (five unless the
    // first argument says otherwise) counts.
    Times best = measureOnce(saving, dir / "ours.tpl", dir / "plain.tpl");
    for (int round = 1; round < rounds; ++round) {
        Times t = measureOnce(saving, dir / "ours.tpl", dir / "plain.tpl");
        best = {std::min(best.save, t.save), std::min(best.plainWrite, t.plainWrite), std::min(best.load, t.load),
                std::min(best.plainRead, t.plainRead), t.lines, t.bytes};
    }
    std::printf("%zu lines, %.0f MB\n", best.lines, best.bytes / 1e6);
    std::printf("save / plain write = %.2f, load / plain read = %.2f\n", best.save / best.plainWrite,
                best.load / best.plainRead);
    std::filesystem::remove_all(dir);
    return 0;
}
