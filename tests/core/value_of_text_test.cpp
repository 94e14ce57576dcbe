#include <gtest/gtest.h>

#include <cmath>

#include "text/colon_split.h"
#include "text/eight_digits.h"
#include "text/plain_integer.h"
#include "text/value_of_text.h"

namespace quorlin {
namespace {

struct LeadingCase {
    const char* text;
    double value;
};

class LeadingNumber : public ::testing::TestWithParam<LeadingCase> {};

TEST_P(LeadingNumber, ReadsTheNumberTheTextBeginsWith) {
    EXPECT_DOUBLE_EQ(leadingNumber(GetParam().text), GetParam().value) << "text: [" << GetParam().text << "]";
}

INSTANTIATE_TEST_SUITE_P(Forms, LeadingNumber, ::testing::Values(
    LeadingCase{"", 0}, LeadingCase{"abc", 0}, LeadingCase{"12abc", 12}, LeadingCase{"  -5", -5},
    LeadingCase{"+7", 7}, LeadingCase{"1.5", 1.5}, LeadingCase{".5", 0.5}, LeadingCase{"1.2.3", 1.2},
    LeadingCase{"1 2 3", 123}, LeadingCase{"\t4\n2", 42}, LeadingCase{"2e3", 2000}, LeadingCase{"2E-1x", 0.2},
    LeadingCase{"2e", 2}, LeadingCase{"3d2", 300}, LeadingCase{"&H1F", 31}, LeadingCase{"&hff", 255},
    LeadingCase{"&HFFFF", -1}, LeadingCase{"&H10000", 65536}, LeadingCase{"&HFFFFFFFF", -1},
    LeadingCase{"&O17", 15}, LeadingCase{"&O18", 1}, LeadingCase{"&Hxyz", 0}, LeadingCase{"1,5", 1}, LeadingCase{"-", 0},
    LeadingCase{"00042", 42}));

struct WholeCase {
    const char* text;
    std::optional<double> value;
};

class WholeNumber : public ::testing::TestWithParam<WholeCase> {};

TEST_P(WholeNumber, AcceptsOnlyATextThatIsANumberAsAWhole) {
    NumberLocale comma{","};
    auto got = wholeNumber(GetParam().text, comma);
    ASSERT_EQ(got.has_value(), GetParam().value.has_value()) << "text: [" << GetParam().text << "]";
    if (got) {
        EXPECT_DOUBLE_EQ(*got, *GetParam().value);
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, WholeNumber, ::testing::Values(
    WholeCase{"", std::nullopt}, WholeCase{"   ", std::nullopt}, WholeCase{"12abc", std::nullopt},
    WholeCase{" 12 ", 12.0}, WholeCase{"-5", -5.0}, WholeCase{"+5", 5.0}, WholeCase{"12.5", 12.5},
    WholeCase{"12,5", 12.5}, WholeCase{"1e3", 1000.0}, WholeCase{"1e", std::nullopt},
    WholeCase{".", std::nullopt}, WholeCase{"-", std::nullopt}, WholeCase{"&H10", 16.0},
    WholeCase{"&H", std::nullopt}, WholeCase{"&Z0", std::nullopt}, WholeCase{"1 2", std::nullopt}, WholeCase{"1.2.3", std::nullopt},
    WholeCase{"1e999", std::nullopt}));

TEST(WholeNumberLocale, APeriodAlwaysWorksAndOnlyTheLocaleAddsAComma) {
    EXPECT_EQ(wholeNumber("2.5", NumberLocale{","}), 2.5);
    EXPECT_EQ(wholeNumber("2,5", NumberLocale{"."}), std::nullopt);
}

TEST(Rounding, HalvesGoToTheEvenNeighbourAndFailOutsideTheTarget) {
    const std::pair<double, double> halves[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-2.5, -2}, {-3.5, -4},
                                                {13.5, 14}, {2.4999, 2}, {-0.6, -1}};
    for (auto [value, rounded] : halves) EXPECT_EQ(roundHalfEven(value), rounded) << value;
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_EQ(toInt16(32767.5), std::nullopt);
    EXPECT_EQ(toInt16(-32768.5), -32768);
    EXPECT_EQ(toInt16(-32769), std::nullopt);
    EXPECT_EQ(toInt32(2147483648.0), std::nullopt);
    EXPECT_EQ(toInt32(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(toInt32(NAN), std::nullopt);
    EXPECT_EQ(clampToInt32(3e10), 2147483647);
    EXPECT_EQ(clampToInt32(-3e10), -2147483647 - 1);
    EXPECT_EQ(clampToInt32(-7.5), -8);
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

TEST(ColonSplit, CutsAtTheFirstColonOnly) {
    EXPECT_EQ(splitAtColon("1:2:3"), (std::pair<std::string_view, std::string_view>{"1", "2:3"}));
    EXPECT_EQ(splitAtColon(":"), (std::pair<std::string_view, std::string_view>{"", ""}));
    EXPECT_EQ(splitAtColon("25"), std::nullopt);
}

}  // namespace
}  // namespace quorlin
