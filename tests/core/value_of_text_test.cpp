#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "text/eight_digits.h"
#include "text/plain_integer.h"
#include "text/value_of_text.h"

namespace quorlin {
namespace {

TEST(ValueOfText, IsTheNumberTheTextBeginsWith) {
    const std::pair<const char*, double> cases[] = {
        {"", 0}, {"abc", 0}, {"12abc", 12}, {"  -5", -5}, {"+7", 7}, {"1.5", 1.5}, {".5", 0.5}, {"1.2.3", 1.2},
        {"1 2 3", 123}, {"\t4\n2", 42}, {"2e3", 2000}, {"2E-1x", 0.2}, {"2e", 2}, {"3d2", 300}, {"&H1F", 31},
        {"&hff", 255}, {"&HFFFF", -1}, {"&H10000", 65536}, {"&HFFFFFFFF", -1}, {"&O17", 15}, {"&O18", 1},
        {"&Hxyz", 0}, {"1,5", 1}, {"-", 0}, {"00942", 942}};
    for (auto [text, value] : cases) EXPECT_DOUBLE_EQ(leadingNumber(text), value) << "text: [" << text << "]";
}

// The locale adds its decimal comma; a period always works.
TEST(ValueOfText, CountsAsANumberOnlyWhenTheWholeTextConverts) {
    const std::pair<const char*, std::optional<double>> cases[] = {
        {"", {}}, {"   ", {}}, {"12abc", {}}, {" 12 ", 12}, {"-5", -5}, {"+5", 5}, {"12.5", 12.5}, {"12,5", 12.5},
        {"1e3", 1000}, {"1e", {}}, {".", {}}, {"-", {}}, {"&H10", 16}, {"&H", {}}, {"&Z0", {}}, {"1 2", {}},
        {"1.2.3", {}}, {"1e999", {}}};
    for (auto [text, value] : cases) EXPECT_EQ(wholeNumber(text, NumberLocale{","}), value) << "text: [" << text << "]";
    EXPECT_EQ(wholeNumber("2,5", NumberLocale{"."}), std::nullopt);
}

TEST(Rounding, HalvesGoToTheEvenNeighbourAndFailOutsideTheTarget) {
    const std::pair<double, double> halves[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-2.5, -2}, {-3.5, -4},
                                                {13.5, 14}, {2.4999, 2}, {2.6, 3}, {-0.6, -1}};
    for (auto [value, rounded] : halves) EXPECT_EQ(roundHalfEven(value), rounded) << value;
    EXPECT_EQ((std::array{toInt16(32767.4), toInt16(32767.5), toInt16(-32768.5), toInt16(-32769)}),
              (std::array<std::optional<std::int16_t>, 4>{32767, std::nullopt, -32768, std::nullopt}));
    EXPECT_EQ((std::array{toInt32(2147483648.0), toInt32(-2147483648.0), toInt32(NAN)}),
              (std::array<std::optional<std::int32_t>, 3>{std::nullopt, -2147483647 - 1, std::nullopt}));
    EXPECT_EQ((std::array{clampToInt32(3e10), clampToInt32(-3e10), clampToInt32(-7.5)}),
              (std::array{2147483647, -2147483647 - 1, -8}));
}

TEST(PlainInteger, IsOnlyASignAndUpToTenDigitsWithin32Bits) {
    EXPECT_EQ(parsePlainInteger("-2147483648"), -2147483647 - 1);
    EXPECT_EQ(parsePlainInteger("0000000042"), 42);
    for (const char* text : {"", "-", "2147483648", "00000000001", "+1", " 1", "1 ", "1.0", "-0x1"})
        EXPECT_EQ(parsePlainInteger(text), std::nullopt) << text;
}

TEST(EightDigits, WriteAndReadBackOneToEightDigitsAndRefuseTheRest) {
    for (std::int32_t value : {0, 7, 10, 99, 100, 999, 1000, 9999, 10000, 100001, 1234567, 10000000, 99999999}) {
        char text[16] = "xxxxxxxxxxxxxxx";
        char* const end = writeEightDigits(text, value);
        ASSERT_NE(end, nullptr) << value;
        *end = '\r';
        EXPECT_EQ(std::string(text, static_cast<std::size_t>(end - text)), std::to_string(value));
        const char* at = text;
        EXPECT_EQ(readEightDigits(at), value);
        EXPECT_EQ(at, end);
    }
    char room[16];
    EXPECT_EQ(writeEightDigits(room, 100000000), nullptr);
    EXPECT_EQ(writeEightDigits(room, -1), nullptr);
    for (const char* text : {"123456789\r", "\r\n0000000", "-1\r\n00000", "/9\r\n000000", ":\r\n0000000"}) {
        const char* at = text;
        EXPECT_EQ(readEightDigits(at), std::nullopt) << text;
        EXPECT_EQ(at, text);
    }
    const char* padded = "00000042\r\n";
    EXPECT_EQ(readEightDigits(padded), 42);
}

}  // namespace
}  // namespace quorlin
