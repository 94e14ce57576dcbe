#include <gtest/gtest.h>

#include "window/entry_validation.h"
#include "window/messages.h"
#include "support/fake_platform.h"

namespace quorlin::testing {
namespace {

struct Field {
    Ctl id;
    const char* text;
};

struct ValidationCase {
    const char* name;
    std::vector<Ctl> options;
    std::vector<Field> fields;
    const char* message;  // nullptr: the fields pass
};

// The defaults plus a valid point; each case changes only what it is about.
class ValidateInputTable : public ::testing::TestWithParam<ValidationCase> {};

TEST_P(ValidateInputTable, ShowsOnlyTheFirstProblem) {
    EntryForm form;
    form.setText(Ctl::txtX, "1");
    form.setText(Ctl::txtY, "1");
    for (Ctl option : GetParam().options) form.selectOption(option);
    for (const Field& f : GetParam().fields) form.setText(f.id, f.text);
    FakeDialogs dialogs;

    bool ok = ValidateInput(form, NumberLocale{","}, dialogs);

    if (GetParam().message) {
        EXPECT_FALSE(ok);
        EXPECT_EQ(dialogs.messages, std::vector<std::string>{GetParam().message});
    } else {
        EXPECT_TRUE(ok);
        EXPECT_TRUE(dialogs.messages.empty()) << dialogs.messages.front();
    }
}

using C = Ctl;
INSTANTIATE_TEST_SUITE_P(Cases, ValidateInputTable, ::testing::Values(
    ValidationCase{"LimitsThemselvesPass", {}, {{C::txtMinutes, "1"}, {C::txtSeconds, "60"}, {C::txtMiliseconds, "600"}}, nullptr},
    ValidationCase{"MinutesJustAbove", {}, {{C::txtMinutes, "1.01"}}, msg::kMaxMinute},
    ValidationCase{"SecondsAbove", {}, {{C::txtSeconds, "61"}}, msg::kMaxSeconds},
    ValidationCase{"MilisecondsAbove", {}, {{C::txtMiliseconds, "601"}}, msg::kMaxMiliseconds},
    ValidationCase{"NoLowerLimits", {}, {{C::txtMinutes, "-100"}, {C::txtSeconds, "-1e9"}}, nullptr},
    ValidationCase{"MinutesEmpty", {}, {{C::txtMinutes, ""}}, msg::kErrorInInput},
    ValidationCase{"SecondsNotANumber", {}, {{C::txtSeconds, "3s"}}, msg::kErrorInInput},
    ValidationCase{"IntervalBeforePoint", {}, {{C::txtMinutes, "5"}, {C::txtX, ""}}, msg::kMaxMinute},
    ValidationCase{"MinutesCheckedBeforeSeconds", {}, {{C::txtMinutes, "2"}, {C::txtSeconds, "x"}}, msg::kMaxMinute},
    ValidationCase{"CountFirst", {}, {{C::txtCount, "abc"}, {C::txtMinutes, "9"}}, msg::kErrorInInput},
    ValidationCase{"CountIgnoredWhenNonStop", {C::optLoop}, {{C::txtCount, "abc"}}, nullptr},
    ValidationCase{"RandomFromFirst", {C::optRandom}, {{C::txtFromSec, "abc"}, {C::txtToSec, "xyz"}}, msg::kFromSecDecimal},
    ValidationCase{"RandomTo", {C::optRandom}, {{C::txtFromSec, "2"}, {C::txtToSec, "xyz"}}, msg::kToSecDecimal},
    ValidationCase{"RandomIgnoresFixedFields", {C::optRandom}, {{C::txtFromSec, "2"}, {C::txtToSec, "5"}, {C::txtMinutes, "99"}}, nullptr},
    ValidationCase{"CustomIgnoresRandomFields", {}, {{C::txtFromSec, "abc"}}, nullptr},
    ValidationCase{"PointMayBeNegativeOrFractional", {}, {{C::txtX, "-5"}, {C::txtY, "12.5"}}, nullptr},
    ValidationCase{"LocaleComma", {}, {{C::txtY, "12,5"}}, nullptr},
    ValidationCase{"BlanksAround", {}, {{C::txtX, "  7 "}}, nullptr},
    ValidationCase{"YAfterX", {}, {{C::txtY, "1y"}}, msg::kErrorInInput},
    ValidationCase{"XEmpty", {C::optRandom}, {{C::txtFromSec, "1"}, {C::txtToSec, "1"}, {C::txtX, ""}}, msg::kErrorInInput}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(ValidateInput, ChangesNoField) {
    EntryForm form;
    form.setText(Ctl::txtX, " 1 ");
    FakeDialogs dialogs;
    ValidateInput(form, NumberLocale{}, dialogs);
    EXPECT_EQ(form.text(Ctl::txtX), " 1 ");
    EXPECT_EQ(form.text(Ctl::txtSeconds), "3");
}

}  // namespace
}  // namespace quorlin::testing
