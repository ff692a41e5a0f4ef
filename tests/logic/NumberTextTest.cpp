#include "ArgumentChecks.h"
#include <CorvexMaterial/NumberExpression.h>
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Status.h>

#include <bit>

namespace CorvexMaterial {

namespace {

TEST(NumberText, RefusesWhatIsNotEntirelyAFiniteNumber)
{
    for (const char* const text : {"", " ", "+", "-", "1,5", "1.2.3", "12 apples", "1 2", "0x10",
                                   "inf", "-infinity", "nan", "1e999", "+-1", "++1", "1e"}) {
        EXPECT_EQ(NumberFromText(text), std::nullopt) << '"' << text << '"';
        EXPECT_EQ(WholeNumberFromText(text), std::nullopt) << '"' << text << '"';
        EXPECT_EQ(FlagFromText(text), std::nullopt) << '"' << text << '"';
    }
    EXPECT_EQ(NumberFromText(std::string_view("1\0", 2)), std::nullopt);
    EXPECT_EQ(NumberFromText("\t-1.5e1\r\n"), -15.0);
    EXPECT_EQ(NumberFromText(".5"), 0.5);
}

TEST(TypedNumbers, AreComputedWithEitherDecimalSignOrRefusedWithTheReason)
{
    using enum TypedNumber::Fault;
    struct Row {
        const char* text;
        double value;
        TypedNumber::Fault fault = None;
        bool isPlain = false;
    };
    for (const Row& row : {Row{"12", 12, None, true},
                           Row{"-1.5e1 ", -15, None, true},
                           Row{"2*1.5", 3},
                           Row{"50 %", 20},
                           Row{"(1+2)*-3 - 4/8", -9.5},
                           Row{"12,5", 12.5},
                           Row{"1,", 1},
                           Row{"10 + 25%*2", 30},
                           Row{"\u2212 2 \u00D7 3 \u00F7 4", -1.5},
                           Row{"45 \u00B0", 45},
                           Row{"", 0, Unfinished},
                           Row{"2*", 0, Unfinished},
                           Row{"(1+2", 0, Unfinished},
                           Row{"-", 0, Unfinished},
                           Row{"1.234,5", 0, GroupSign},
                           Row{"1,234.5", 0, GroupSign},
                           Row{"1 234", 0, GroupSign},
                           Row{"1'234", 0, GroupSign},
                           Row{"1/0", 0, NoNumber},
                           Row{"0/0", 0, NoNumber},
                           Row{"12 apples", 0, NoNumber},
                           Row{"2)", 0, NoNumber},
                           Row{"%", 0, NoNumber},
                           Row{"1+nan", 0, NoNumber}}) {
        const TypedNumber read = ReadTyped(row.text, 40.0);
        EXPECT_EQ(read.value, row.value) << row.text;
        EXPECT_EQ(read.fault, row.fault) << row.text;
        EXPECT_EQ(read.isPlain, row.isPlain) << row.text;
    }
    EXPECT_EQ(ReadTyped(std::string(100'000, '(') + "1").fault, NoNumber);
}

TEST(NumberText, RoundsAsTheProcessorDoes)
{
    for (double value = -12.0; value <= 12.0; value += 0.125) {
        EXPECT_EQ(RoundHalfEven(value), std::nearbyint(value)) << value;
    }
    EXPECT_EQ(RoundHalfEven(0.49999999999999994), 0);
}

TEST(NumberText, WholeNumbersFillThirtyTwoBitsAndNoMore)
{
    EXPECT_EQ(WholeNumberFromText("2147483647.5"), std::nullopt);
    EXPECT_EQ(WholeNumberFromText("2147483647.25"), 2147483647);
    EXPECT_EQ(WholeNumberFromText("-2147483648.5"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(WholeNumberFromText("-2147483649"), std::nullopt);
    EXPECT_EQ(TextOfWholeNumber(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_THROW((void)RoundHalfEven(std::numeric_limits<double>::quiet_NaN()), Error);
    EXPECT_THROW((void)RoundHalfEven(2147483648.0), Error);
}

TEST(NumberText, EverySingleReadsBackToItself)
{
    std::mt19937 bits(4711);
    for (int i = 0; i < 20000; ++i) {
        const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits()));
        if (std::isfinite(value)) {
            const std::string text = TextOfSingle(value);
            ASSERT_EQ(SingleFromText(text), value) << text;
            ASSERT_EQ(text.find(','), std::string::npos);
        }
    }
    EXPECT_EQ(TextOfSingle(0.1F), "0.1");
    EXPECT_EQ(TextOfSingle(1.0F), "1");
}

}  // namespace

}  // namespace CorvexMaterial
