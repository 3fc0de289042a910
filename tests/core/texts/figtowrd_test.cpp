
#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

#include "core/texts/figtowrd.h"

namespace {

using core::figToWrd;

TEST(FigToWrd, SpellsAmounts) {
    const std::vector<std::pair<double, const char*>> cases{
        {0, " Naria"},
        {7, "Seven Naria"},
        {10, "Ten Naria"},
        {16, "Sixteen Naria"},
        {18, "Eightteen Naria"},
        {20, "Twenty  Naria"},
        {45, "Fourty Five Naria"},
        {99, "Ninety Nine Naria"},
        {100, "One Hundred Naria"},
        {120, "One Hundred And Twenty  Naria"},
        {1000, "One Thousand,  Naria"},
        {1500, "One Thousand, Five Hundred Naria"},
        {1000001, "One Million, One Naria"},
        {2003004005.0, "Two Billion, Three Million, Four Thousand, Five Naria"},
        {10.5, "Ten Naria and Fifty  kobo only"},
        {0.25, " Naria and Twenty Five kobo only"},
        {3.125, "Three Naria and Twoteen kobo only"},  // 12.5 has no exact word and rounds to 12
        {0.07, " Naria and  kobo only"},               // the double is a little more than seven kobo
        {999999999999.99,
         "Nine Hundred And Ninety Nine Billion, Nine Hundred And Ninety Nine Million, Nine Hundred And Ninety Nine "
         "Thousand, Nine Hundred And Ninety Nine Naria and Ninety Nine kobo only"},
        {1e12, "***"},
        {std::numeric_limits<double>::infinity(), "***"},
        {std::numeric_limits<double>::quiet_NaN(), "***"},
        {-5, " Naria"},
        {-5.5, " Naria and  kobo only"},
    };
    for (const auto& [value, words] : cases) EXPECT_EQ(figToWrd().Num2String(value), words) << value;
}

TEST(FigToWrd, FollowsItsSettings) {
    struct Case {
        int delimiter, letterCase, padding;
        const char* words;
    };
    const std::vector<Case> cases{
        {0, 1, 0, "ONE THOUSAND, TWO NARIA"},
        {0, 2, 0, "one thousand, two naria"},
        {0, 7, 0, "one thousand, two naria"},
        {1, 0, 1, "*One Thousand Two Naria*"},
        {2, 0, 2, "***One Thousand-Two Naria***"},
        {3, 0, 0, "One ThousandTwo Naria"},
        {0, 0, 3, ""},
    };
    for (const auto& one : cases) {
        figToWrd words;
        words.setUseDelimiter(one.delimiter);
        words.setUseCase(one.letterCase);
        words.setUsePadding(one.padding);
        EXPECT_EQ(words.Num2String(1002), one.words);
    }
}

}  // namespace
