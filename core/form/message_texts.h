#pragma once

namespace quorlin::msg {

inline constexpr const char* kErrorInInput = "Error in input";
inline constexpr const char* kMaxMinute = "Maximum interval is 1 minute";
inline constexpr const char* kMaxSeconds = "Maximum interval is 60 seconds";
inline constexpr const char* kMaxMiliseconds = "Maximum interval is 600 miliseconds";
inline constexpr const char* kFromSecDecimal = "From Sec. must be decimal value";
inline constexpr const char* kToSecDecimal = "To Sec. must be decimal value";
inline constexpr const char* kFieldsIncorrect = "Input field are incorrect. Please enter a valid value.";
inline constexpr const char* kSwitchOnCount =
    "Please switch on '# of times' option button. Can not run Non-stop clicks in Track list.";
inline constexpr const char* kSelectPicture = "Select a picture.Click 'Get Picture'.";
inline constexpr const char* kMaxRows = "Maximum row count was exceeded.";
// Our own wording for a failure the user did not cause by a refused input.
inline constexpr const char* kIntervalOverflow = "Overflow: the interval is too large to be counted.";
inline constexpr const char* kPictureTooLarge = "The captured picture is too large to be kept with the step.";

inline constexpr const char* kPictureRectOutOfLimits =
    "The picture rectangle must lie within -32768 to 32767 and be at most 1001 x 1001 pixels.";

}  // namespace quorlin::msg
