#include <ztutil/ZtUStringBuffer.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

TEST(ZtUStringBuffer, FormatsLikePrintf) {
    ZtUStringBuffer b;
    const int length = b.Format("%d|%5d|%-4d|%05.1f|%x|%lld|%%|%c", -3, 42, 7, 3.14159, 255,
                                static_cast<long long>(LLONG_MIN), 'z');
    EXPECT_EQ(length, static_cast<int>(std::string(b.GetString()).size()));
    EXPECT_STREQ(b.GetString(), "-3|   42|7   |003.1|ff|-9223372036854775808|%|z");
    b.Format("%*d|%.*f|%.3s|%6s|%-6s|", 4, 9, 2, 2.0 / 3.0, "abcdef", "ab", "cd");
    EXPECT_STREQ(b.GetString(), "   9|0.67|abc|    ab|cd    |");
    b.Format("%ls and %s", L"wide \u00e9", "narrow \xc3\xa9");
    EXPECT_STREQ(b.GetString(), "wide \xc3\xa9 and narrow \xc3\xa9");
    b.Format("%.16f", 1e20);
    EXPECT_STREQ(b.GetString(), "100000000000000000000.0000000000000000");
    b.Format("%g %e", 1e8, 1e-8);
    EXPECT_STREQ(b.GetString(), "1e+08 1.000000e-08") << "two-digit exponents on every platform";
    b.AppendFormat(" %s", "more");
    EXPECT_STREQ(b.GetString(), "1e+08 1.000000e-08 more");
}

TEST(ZtUStringBuffer, TextsOfAnyLength) {
    const std::string big(100000, 'x');
    ZtUStringBuffer b;
    b.Format("[%s]", big.c_str());
    EXPECT_EQ(b.GetLength(), 100002);
    b.Format("%.400f", 1.0);
    EXPECT_EQ(b.GetLength(), 402);

    const std::wstring wbig(70000, L'y');
    ZtUWideStringBuffer w;
    w.Format(L"<%ls>", wbig.c_str());
    EXPECT_EQ(w.GetLength(), 70002);
    EXPECT_EQ(w.Str(), L"<" + wbig + L">");
}

TEST(ZtUWideStringBuffer, FormatsWideTextsTheSameOnEveryPlatform) {
    ZtUWideStringBuffer w;
    w.Format(L"(%.16f, %.16f, %.16f)", 1.0, -0.5, 1e20);
    EXPECT_STREQ(w.GetString(),
                 L"(1.0000000000000000, -0.5000000000000000, 100000000000000000000.0000000000000000)");
    w.Format(L"%ls|%s|%d|%5.2f|%lc", L"w\u00e9", "n\xc3\xa9", -12, 3.14159, static_cast<wint_t>(L'q'));
    EXPECT_STREQ(w.GetString(), L"w\u00e9|n\u00e9|-12| 3.14|q");
    w.Format(L"\U0001F600 %ls", L"\U0001F600");
    EXPECT_EQ(w.ToUtf8(), "\xF0\x9F\x98\x80 \xF0\x9F\x98\x80") << "characters beyond the BMP";
}

TEST(ZtUStringBuffer, ConvertsBetweenUtf8AndWide) {
    const std::string utf8 = "a\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80";
    const std::wstring wide = ZtUUtf8ToWide(utf8);
    EXPECT_EQ(ZtUWideToUtf8(wide), utf8);
    EXPECT_EQ(ZtUUtf8ToWide(std::string("\xff" "a")), std::wstring(L"\uFFFD" L"a"));
    EXPECT_EQ(ZtUUtf8ToWide(std::string("\xe2\x82")), std::wstring(L"\uFFFD\uFFFD")) << "truncated";
}
