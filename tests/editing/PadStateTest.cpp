#include "editing/CDurationPadState.h"
#include "editing/CNumberPadState.h"
#include "editing/CTimePadState.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

// ---- Number pad: keys as characters, '0'-'9', 's' "+/-", ',' separator, '<' back, 'C', '+', '='.

using NKey = CNumberPadState::Key;

NKey NumberKey(char c)
{
    if (c >= '0' && c <= '9')
        return CNumberPadState::Digit(c - '0');
    const NKey others[] = {NKey::Sign, NKey::Separator, NKey::Back, NKey::Clear, NKey::Plus, NKey::Equals};
    return others[std::string_view("s,<C+=").find(c)];
}

TEST(NumberPadTest, KeysGiveDisplayValueAndEnabledKeys)
{
    const struct
    {
        int maxDecimals;
        bool negative;
        int start;
        const char *keys, *display;
        int scaled;
        const char* enabled; // in the order "0123456789s,<C+="
    } cases[] = {
        // Fresh pads: digits and separator open, nothing to add.
        {0, false, 0, "", "0", 0, "0123456789,<C"},
        {1, false, 0, "", "0,0", 0, "0123456789,<C"},
        {2, true, 0, "", "0,00", 0, "0123456789s,<C"},
        // One decimal: the separator shows at once, the second decimal is refused.
        {1, false, 0, "5,", "5,", 50, "0123456789<C+"},
        {1, false, 0, "5,2", "5,2", 52, "<C+"},
        {1, false, 0, "5,27", "5,2", 52, "<C+"},
        // Whole numbers: "," before any separator, but no digit after it.
        {0, false, 0, "5,", "5", 5, "<C+"},
        {0, false, 0, "5,7", "5", 5, "<C+"},
        {0, false, 0, ",", "0", 0, "0123456789,<C"},
        // Whole digits are scaled by the decimals not typed.
        {2, false, 0, "12", "12", 1200, "0123456789,<C+"},
        {2, false, 0, "12,3", "12,3", 1230, "0123456789<C+"},
        // A starting value is shown, and the first digit or separator replaces it.
        {2, false, 123456789, "", "1.234.567,89", 123456789, "0123456789,<C+"},
        {0, false, 5, "7", "7", 7, "0123456789,<C+"},
        {0, false, 4000, "13", "13", 13, "0123456789,<C+"},
        {1, false, 52, ",3", "0,3", 3, "<C+"},
        {1, true, 52, "s", "-5,2", -52, "0123456789s,<C+"},
        {1, true, 52, "s7", "7", 70, "0123456789s,<C+"},
        {0, false, 4000, "+", "0", 0, "0123456789,<C"},
        // "<--" and "C" keep their meaning on it.
        {0, false, 5, "<7", "57", 57, "0123456789,<C+"},
        {0, false, 5, "C7", "7", 7, "0123456789,<C+"},
        {2, false, 0, "123<", "12", 1200, "0123456789,<C+"},
        {2, false, 0, "12,3<", "12,", 1200, "0123456789<C+"},
        // Over the separator itself only whole-number entry comes back.
        {2, false, 0, "12,3<<", "12", 1200, "0123456789,<C+"},
        {2, false, 0, "<", "0,0", 0, "0123456789<C"},
        {2, false, 1234, "<", "12,3", 1230, "0123456789<C+"},
        {1, true, 0, "7s", "-7", -70, "0123456789s,<C+"},
        {2, true, 0, "0,5s", "-0,5", -50, "0123456789s<C+"},
        {0, true, -1234, "", "-1.234", -1234, "0123456789s,<C+"},
        // The digit is added to the negative value as it stands.
        {0, true, 0, "12s3", "-117", -117, "0123456789s,<C+"},
        {0, false, 0, "7s", "7", 7, "0123456789,<C+"},
        {0, false, 0, "2+", "0", 0, "0123456789,<C"},
        {0, false, 0, "2+3", "3", 3, "0123456789,<C+="},
        // The result of "=" takes no digits; a repeated "=" adds the last operand again.
        {0, false, 0, "2+3=", "5", 5, "<C+="},
        {0, false, 0, "2+3==", "8", 8, "<C+="},
        {0, false, 0, "2+3=<7", "57", 57, "0123456789,<C+"},
        // "C" clears the accumulator and the last operand too.
        {0, false, 0, "2+3==C", "0", 0, "0123456789,<C"},
        {0, false, 0, "2+3C4=", "4", 4, "0123456789,<C+"},
        // "=" with no second operand is refused; "+/-" forgets the last operand.
        {0, false, 0, "5+=", "0", 0, "0123456789,<C"},
        {0, true, 0, "2+3=s=", "-5", -5, "s<C+"},
        {2, true, 0, "12+3,5=", "15,50", 1550, "s<C+="},
        {2, true, 0, "12+3,5==", "19,00", 1900, "s<C+="},
        {0, false, 0, "2147483647", "2.147.483.647", 2147483647, ",<C+"},
        {0, false, 0, "21474836489", "214.748.364", 214748364, "01234567,<C+"},
        {2, false, 0, "21474836,", "21.474.836,", 2147483600, "01234<C+"},
        {0, false, 2147483647, "+C2147483647+", "0", 0, "0123456789,<C"},
        {0, false, 0, "2147483647+1=", "2.147.483.647", 2147483647, "<C+="},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.start << " keys '" << c.keys << "' max decimals " << c.maxDecimals);
        CNumberPadState pad(c.start, c.maxDecimals, c.negative, ",", ".");
        for (const char* k = c.keys; *k; ++k)
            pad.Press(NumberKey(*k));
        std::string enabled;
        for (char k : std::string_view("0123456789s,<C+="))
            if (pad.IsEnabled(NumberKey(k)))
                enabled += k;
        EXPECT_EQ(pad.Display(), c.display);
        EXPECT_EQ(pad.ScaledValue(), c.scaled);
        EXPECT_EQ(enabled, c.enabled);
    }
}

TEST(NumberPadSeparatorTest, DisplayUsesTheLocalesSeparators)
{
    const struct
    {
        const char *decimal, *thousands;
        int start, maxDecimals;
        const char* display;
    } cases[] = {{".", ",", 123456, 2, "1,234.56"},  {",", "\u00a0", 123456, 2, "1\u00a0234,56"},
                 {".", "", -1234567, 0, "-1234567"}, {".", ",", 100000, 0, "100,000"},
                 {".", ",", 999, 0, "999"},          {".", ",", 5, 2, "0.05"}};
    for (const auto& c : cases)
        EXPECT_EQ(CNumberPadState(c.start, c.maxDecimals, true, c.decimal, c.thousands).Display(), c.display);
}

// ---- Duration pad: keys named by group and label, "h+500", "m-5", "h11", in the order pressed;
// "h+*" names every hour-plus key.

using DKey = CDurationPadState::Key;

std::vector<DKey> DurationKeys(const std::string& names)
{
    std::vector<DKey> keys;
    std::istringstream words(names);
    for (std::string word; words >> word;) {
        const bool group = word.back() == '*';
        const std::string stem = group ? word.substr(0, word.size() - 1) : word;
        const std::size_t before = keys.size();
        for (int k = 0; k < static_cast<int>(DKey::Count); ++k) {
            const DKey key = static_cast<DKey>(k);
            const char prefix = key >= DKey::SecondPlus1 ? 's' : key >= DKey::MinutePlus1 ? 'm' : 'h';
            const std::string name = prefix + CDurationPadState::Label(key);
            if (group ? name.rfind(stem, 0) == 0 : name == stem)
                keys.push_back(key);
        }
        EXPECT_GT(keys.size(), before) << "no key " << word;
    }
    return keys;
}

TEST(DurationPadTest, KeysGiveFieldsDisplayAndDisabledKeys)
{
    const struct
    {
        int hours, minutes, seconds, maxHours;
        const char* keys;
        const char* fields; // hours:minutes:seconds after the keys
        const char* display;
        const char* disabled;
    } cases[] = {
        {998, 59, 50, 999, "s+10", "999:0:0", "999:00:00", "h+*"},
        {999, 59, 59, 999, "", "999:59:59", "999:59:59", "h+* m+* s+*"},
        {0, 0, 0, 999, "", "0:0:0", "000:00:00", "h-* m-* s-*"},
        // Max hours 99 or less: hours and minutes, then the literal ":02d".
        {0, 0, 0, 50, "", "0:0:0", "00:00:02d", "h+100 h+500 h-* m-* s-*"},
        {50, 59, 59, 50, "", "50:59:59", "50:59:02d", "h+* h-100 h-500 m+* s+*"},
        {50, 54, 56, 50, "", "50:54:56", "50:54:02d", "h+* h-100 h-500 m+10"},
        {3, 4, 5, 99, "", "3:4:5", "03:04:02d", "h+100 h+500 h-5 h-10 h-50 h-100 h-500"},
        {7, 0, 0, 100, "", "7:0:0", "007:00:00", "h+100 h+500 h-10 h-50 h-100 h-500"},
        {0, 0, 0, 1000, "h+500 h+500", "1000:0:0", "1000:00:00", "h+*"},
        {1, 58, 0, 50, "m+5", "2:3:0", "02:03:02d", "h+50 h+100 h+500 h-5 h-10 h-50 h-100 h-500"},
        {2, 3, 0, 999, "m-5", "1:58:0", "001:58:00", "h-5 h-10 h-50 h-100 h-500"},
        {1, 59, 58, 999, "s+5", "2:0:3", "002:00:03", "h-5 h-10 h-50 h-100 h-500"},
        {2, 0, 3, 999, "s-5", "1:59:58", "001:59:58", "h-5 h-10 h-50 h-100 h-500"},
        {0, 10, 59, 999, "s+1", "0:11:0", "000:11:00", "h-*"},
        // At hour 0 a step that would borrow is disabled and ignored.
        {0, 7, 0, 999, "m-5 m-5", "0:2:0", "000:02:00", "h-* m-5 m-10"},
        {0, 0, 7, 999, "s-5 s-5", "0:0:2", "000:00:02", "h-* m-* s-5 s-10"},
        // Hour keys are never disabled and may go above max hours.
        {0, 0, 0, 5, "h11", "11:0:0", "11:00:02d", "h+* h-50 h-100 h-500"},
        {0, 0, 0, 999, "h+500 h+100 h-5", "595:0:0", "595:00:00", "h+500"},
        {595, 0, 0, 999, "h0", "0:0:0", "000:00:00", "h-* m-* s-*"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.hours << ":" << c.minutes << ":" << c.seconds << " keys " << c.keys);
        CDurationPadState pad(c.hours, c.minutes, c.seconds, c.maxHours);
        for (DKey key : DurationKeys(c.keys))
            pad.Press(key);
        EXPECT_EQ(std::to_string(pad.Hours()) + ":" + std::to_string(pad.Minutes()) + ":" +
                      std::to_string(pad.Seconds()),
                  c.fields);
        EXPECT_EQ(pad.Display(), c.display);
        std::vector<DKey> disabled, expected = DurationKeys(c.disabled);
        for (int k = 0; k < static_cast<int>(DKey::Count); ++k)
            if (!pad.IsEnabled(static_cast<DKey>(k)))
                disabled.push_back(static_cast<DKey>(k));
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(disabled, expected);
    }
}

using TKey = CTimePadState::Key;

TEST(TimePadTest, KeysGiveTheTimeAreLabelledAndNeverDisabled)
{
    const struct
    {
        int hour, minute;
        std::vector<TKey> keys;
        const char* display;
    } cases[] = {
        {23, 50, {TKey::Plus15}, "00:05"},
        {0, 5, {TKey::Minus10}, "23:55"},
        {0, 0, {TKey::Minus15}, "23:45"},
        {10, 59, {TKey::Plus1}, "11:00"},
        {11, 0, {TKey::Minus1}, "10:59"},
        {12, 34, {TKey::Hour24}, "00:34"},
        {12, 34, {TKey::Hour1}, "01:34"},
        {7, 8, {TKey::Minute00}, "07:00"},
        {12, 34, {TKey::Hour23, TKey::Minute45}, "23:45"},
        {0, 0, {TKey::Hour13, TKey::Minute30, TKey::Plus5, TKey::Minus10, TKey::Plus10}, "13:35"},
    };
    for (const auto& c : cases) {
        CTimePadState pad(c.hour, c.minute);
        for (TKey key : c.keys)
            pad.Press(key);
        EXPECT_EQ(pad.Display(), c.display);
        for (int k = 0; k < static_cast<int>(TKey::Count); ++k)
            EXPECT_TRUE(pad.IsEnabled(static_cast<TKey>(k)));
    }
    // Labels as the pads show them; the duration pad's table above names most of its keys by them.
    EXPECT_EQ(CDurationPadState::Label(DKey::HourMinus1), "-1");
    const std::pair<TKey, const char*> labels[] = {{TKey::Hour1, "1"},      {TKey::Hour24, "24"},
                                                   {TKey::Minute00, ":00"}, {TKey::Minute45, ":45"},
                                                   {TKey::Plus15, "+15"},   {TKey::Minus1, "-1"}};
    for (const auto& [key, label] : labels)
        EXPECT_EQ(CTimePadState::Label(key), label);
}

} // namespace
