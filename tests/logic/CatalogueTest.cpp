#include "ErrorTexts.h"
#include <CorvexMaterial/AttributeText.h>
#include <CorvexMaterial/WarningCatalogue.h>

#include <new>

namespace CorvexMaterial {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(AttributeCatalogue, FactoryTextsAreCanonical)
{
    for (const AttributeRow& row : AttributeRows()) {
        if (row.kind != AttributeKind::Numbers && row.kind != AttributeKind::Texts) {
            EXPECT_EQ(CanonicalText(row.attribute, row.factoryText), row.factoryText) << row.label;
            if (row.path.LeadsIntoRecord()) {
                EXPECT_EQ(TextIn({}, row.attribute), row.factoryText) << row.label;
            }
        }
    }
}

TEST(Warnings, AreShownForAMissingChoiceAndForExactlyOne)
{
    EXPECT_TRUE(WarningWanted(std::nullopt));
    EXPECT_TRUE(WarningWanted(TextOfWarningChoice(true)));
    EXPECT_TRUE(WarningWanted("1.0"));
    for (const char* const stored : {"0", "2", "-1", "1.5", "", "True"}) {
        EXPECT_FALSE(WarningWanted(stored)) << stored;
    }
    EXPECT_FALSE(WarningWanted(TextOfWarningChoice(false)));
}

template <typename Thrown>
ErrorReport Described(const Thrown& thrown)
{
    return Describe(std::make_exception_ptr(thrown), "SaveStatus");
}

TEST(ErrorTexts, EveryKindOfFailureIsClassifiedAndNamed)
{
    const ErrorReport file = Described(Error(Status::FileFailed, "a.x is missing"));
    EXPECT_EQ(ErrorBoxText(file),
              "Error #: 6 Error Description: a.x is missing Error Location: SaveStatus");
    EXPECT_EQ(DebugDataText(file), "Debug Data - Location: SaveStatus");
    EXPECT_FALSE(IsUnrecoverable(file));

    EXPECT_EQ(ErrorBoxText(Described(std::bad_alloc())),
              "Out of memory. Please close all programs and run Corvex again. ");

    const ErrorReport device = Described(Error(Status::GraphicsFailed, ""));
    EXPECT_THAT(ErrorBoxText(device), HasSubstr("drivers for your graphics card. "));
    EXPECT_THAT(ErrorBoxText(device), HasSubstr("Unable to create Direct3D Device"));

    const ErrorReport foreign = Described(std::out_of_range("row 9"));
    EXPECT_EQ(foreign.status, Status::Failed);
    EXPECT_THAT(ErrorBoxText(foreign), HasSubstr("Error Description: row 9"));
    EXPECT_THAT(ErrorBoxText(foreign), Not(HasSubstr("drivers")));

    const ErrorReport unknown = Described(42);
    EXPECT_EQ(unknown.status, Status::Failed);
    EXPECT_TRUE(IsUnrecoverable(unknown));
    EXPECT_FALSE(unknown.description.empty());
}

}  // namespace

}  // namespace CorvexMaterial
