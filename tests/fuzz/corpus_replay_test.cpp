#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// The fuzzer's seeds and finds, replayed in every test run.
TEST(ProjectReaderCorpus, EveryKeptInputLoadsWithoutHarm) {
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(QUORLIN_FUZZ_CORPUS)) {
        std::ifstream in(entry.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(in)), {});
        EXPECT_EQ(LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()), 0)
            << entry.path();
        ++replayed;
    }
    EXPECT_GT(replayed, 5);
}
