// The search without regard to case finds what a search of both texts in lower case finds.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/Text.hpp"

namespace pendulon {
namespace {

TEST(InStrNoCase, FindsWhatASearchOfBothTextsInLowerCaseFinds) {
    const std::vector<std::string> texts = {"",          "a",         "Customer: ACME",
                                            "# D 12 ;0", "aAaAbB",    "Modification Date: x",
                                            ":::",       "\xC4\xE4:", "abc"};
    const std::vector<std::string> whats = {"",  "a",  "A",  "customer:", ":",   "# d",
                                            ";", "ab", "bb", "\xE4",      "abcd"};
    for (const std::string& text : texts) {
        for (const std::string& what : whats) {
            for (size_t start = 0; start <= text.size() + 2; ++start) {
                EXPECT_EQ(InStrNoCase(text, what, start), InStr(LCase(text), LCase(what), start))
                    << "'" << text << "' '" << what << "' from " << start;
            }
        }
    }
}

TEST(InStrNoCase, PositionsCountFromOne) {
    EXPECT_EQ(InStrNoCase("Customer: Acme", "ACME"), 11u);
    EXPECT_EQ(InStrNoCase("abcABC", "abc", 2), 4u);
    EXPECT_EQ(InStrNoCase("abc", "x"), 0u);
    EXPECT_EQ(InStrNoCase("abc", "", 4), 4u);
    EXPECT_EQ(InStrNoCase("abc", "", 5), 0u);
}

}  // namespace
}  // namespace pendulon
