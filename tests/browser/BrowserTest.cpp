#include "DetailsForm.h"
#include "LibraryBrowser.h"
#include "LibraryDelegate.h"
#include "LibraryDrag.h"
#include "LibraryView.h"
#include "SampleMaterials.h"
#include "SearchField.h"

#include <QComboBox>
#include <QCompleter>
#include <QDrag>

namespace {

using studio::LibraryBrowser;
using studio::LibraryFile;
using studio::LibraryView;

struct HeardListener : CorvexEditport::EditportListener {
    void ItemSelected(std::int32_t index) override { selected.push_back(index); }
    void ItemOpened(std::int32_t index) override { opened.push_back(index); }
    void Scrolled(const CorvexEditport::ScrollRange& told) override { range = told; }

    std::vector<std::int32_t> selected;
    std::vector<std::int32_t> opened;
    CorvexEditport::ScrollRange range;
};

std::vector<std::string> NumberedNames(int count)
{
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) {
        names.push_back("Stone " + std::to_string(i));
    }
    return names;
}

class Browser : public testing::Test {
protected:
    Browser()
    {
        window.resize(250, 170);
        browser->resize(240, 136);
        browser->SetListener(&heard);
        browser->ScrollFromOutside();
        window.show();
        window.activateWindow();
        View().setFocus();
    }

    void Open(const std::vector<std::string>& names)
    {
        library.emplace();
        file.emplace(library->Open());
        std::vector<studio::NewEntry> entries;
        for (const std::string& name : names) {
            studio::NamedMaterial named{name, {}};
            named.material.Transparency = static_cast<std::int32_t>(entries.size() % 100);
            entries.push_back(studio::EntryOfMaterial(named, "/"));
        }
        file->Add(entries);
        browser->ShowItems(file->Count());
        QCoreApplication::processEvents();
    }
    LibraryView& View() { return *browser->findChild<LibraryView*>(); }
    studio::SearchField& Search()
    {
        return *browser->Companion()->findChild<studio::SearchField*>();
    }
    QRect Place(int row) { return View().visualRect(View().model()->index(row, 0)); }
    void Click(int row)
    {
        QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, Place(row).center());
    }

    int asked = 0;  ///< how often the library was needed
    LibraryTest::TemporaryLibrary own;
    studio::UserMarks marks{own.PathOf("own.cvu")};
    std::optional<LibraryTest::TemporaryLibrary> library;
    std::optional<LibraryFile> file;
    HeardListener heard;
    QWidget window;
    LibraryBrowser* browser = new LibraryBrowser(
        [this] { return ++asked, file ? &*file : nullptr; }, studio::LibraryKind::Materials,
        [] { return std::vector<std::string>{"Supplier"}; }, marks, &window);
};

TEST_F(Browser, ClickChoosesDoubleClickOpensKeysGoOn)
{
    Open(NumberedNames(12));
    Click(2);
    EXPECT_EQ(heard.selected, (std::vector<std::int32_t>{2}));
    EXPECT_EQ(browser->SelectedIndex(), 2);
    QTest::keyClick(&View(), Qt::Key_Right);
    EXPECT_EQ(heard.selected.back(), 3);
    QTest::keyClick(&View(), Qt::Key_Return);
    EXPECT_EQ(heard.opened, (std::vector<std::int32_t>{3}));

    heard.selected.clear();
    const QPoint place = Place(1).center();
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(heard.selected, (std::vector<std::int32_t>{1})) << "one choice, then the opening";
    EXPECT_EQ(heard.opened.back(), 1);

    browser->ReleaseSelection();
    EXPECT_EQ(browser->SelectedIndex(), -1);
    browser->Reveal(4);
    EXPECT_EQ(browser->SelectedIndex(), 4);
    EXPECT_EQ(heard.selected.size(), 1U) << "marking tells nobody";
}

TEST_F(Browser, SearchShowsWhatMatchesAndTellsPlacesInTheFile)
{
    Open({"Ruby", "Gold", "Dark Ruby", "Jade"});
    auto& search = Search();
    QTest::keyClicks(&search, "ruby");
    EXPECT_EQ(View().model()->rowCount(), 2);
    Click(1);
    EXPECT_EQ(heard.selected, (std::vector<std::int32_t>{2}));
    EXPECT_EQ(browser->SelectedIndex(), 2);
    Q_EMIT View().DragStarted(1);
    const auto* drag = View().findChild<QDrag*>();
    EXPECT_EQ(studio::DraggedMaterial(*drag->mimeData())->name, "Dark Ruby");
    browser->Reveal(1);
    EXPECT_EQ(browser->SelectedIndex(), -1) << "what the search hides is not marked";
    browser->Reveal(2);
    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_EQ(View().model()->rowCount(), 4);
    EXPECT_EQ(browser->SelectedIndex(), 2) << "the choice outlives the search";

    search.setText("transparency>1");
    EXPECT_EQ(View().model()->rowCount(), 2);
    search.setText("transparency>");
    EXPECT_EQ(View().model()->rowCount(), 2) << "a text that is no query changes nothing";
    EXPECT_FALSE(search.accessibleDescription().isEmpty());
    search.setText("nothing like it");
    EXPECT_EQ(View().model()->rowCount(), 0);
    EXPECT_TRUE(search.accessibleDescription().isEmpty());

    search.setText("jade");
    file->Add(LibraryTest::EntryNamed("Jade 2"));
    browser->Clear();
    EXPECT_EQ(View().model()->rowCount(), 0) << "nothing is shown of a library that is not";
    browser->ShowItems(file->Count());
    EXPECT_EQ(View().model()->rowCount(), 2) << "the search holds for what is shown next";
}

TEST_F(Browser, StarsAndKeysMarkWhatTheyAreAboutAndChooseNothing)
{
    Open(NumberedNames(12));
    std::vector<std::vector<studio::EntryId>> stars;
    std::vector<int> ratings;
    QObject::connect(browser, &LibraryBrowser::FavouriteWanted,
                     [&](const auto& ids) { stars.push_back(ids); });
    QObject::connect(browser, &LibraryBrowser::RatingWanted,
                     [&](const auto&, int rating) { ratings.push_back(rating); });
    QTest::mouseClick(View().viewport(), Qt::LeftButton, {},
                      studio::LibraryDelegate::StarArea(Place(2)).center());
    EXPECT_EQ(stars, (std::vector<std::vector<studio::EntryId>>{{3}}));
    EXPECT_TRUE(heard.selected.empty());
    Click(0);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::ControlModifier, Place(4).center());
    EXPECT_EQ(heard.selected, (std::vector<std::int32_t>{0})) << "the second is selected too";
    QTest::keyClick(&View(), Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(&View(), Qt::Key_4, Qt::ControlModifier);
    EXPECT_EQ(stars.back(), (std::vector<studio::EntryId>{1, 5}));
    EXPECT_EQ(ratings, (std::vector<int>{4}));

    marks.SetFavourite(file->Path(), std::vector<studio::EntryId>{2, 9}, true);
    Search().setText("fav:yes");
    EXPECT_EQ(View().model()->rowCount(), 2);
    marks.SetFavourite(file->Path(), std::vector<studio::EntryId>{2}, false);
    browser->ShowMarks();
    EXPECT_EQ(View().model()->rowCount(), 1) << "what is no favourite any more goes";
}

TEST_F(Browser, SearchCompletesItsLastWord)
{
    Open({"Ruby", "Gold"});
    file->Describe(std::vector<studio::DescribedEntry>{
        {file->IdAt(0), {"Ann Lee", "", "", {"metal", "dark stone"}, {}}}});
    Search().setFocus();
    QFocusEvent focus(QEvent::FocusIn, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(&Search(), &focus);
    auto& completer = *Search().completer();
    const auto proposed = [&](const char* text) {
        completer.setCompletionPrefix(text);
        QStringList words;
        for (int row = 0; completer.setCurrentRow(row); ++row) {
            words << completer.currentCompletion();
        }
        return words;
    };
    EXPECT_EQ(proposed("ruby TAG:"),
              QStringList({"ruby tag:", "ruby tag:\"dark stone\"", "ruby tag:metal"}));
    EXPECT_EQ(proposed("-auth"), QStringList({"-author:", "-author:\"Ann Lee\""}));
    EXPECT_EQ(proposed("t"), QStringList()) << "names are typed more often";
}

TEST(Details, OfSeveralEntriesChangeWhereTheyAreTouched)
{
    const std::vector<studio::EntryDetails> entries{{"Ann", "CC0", "", {"metal", "old"}, {}},
                                                    {"Bob", "CC0", "", {"metal"}, {"House"}}};
    studio::DetailsForm form(entries, {}, nullptr);
    const auto field = [&form](const char* name) { return form.findChild<QLineEdit*>(name); };
    EXPECT_EQ(form.Edited(entries[0]), entries[0]);
    EXPECT_EQ(form.Edited(entries[1]), entries[1]);
    QTest::keyClicks(field("txtSource"), "x");
    field("txtTags")->setText("shiny, ");
    form.findChild<QComboBox*>("cboLicence")->lineEdit()->selectAll();
    QTest::keyClick(form.findChild<QComboBox*>("cboLicence")->lineEdit(), Qt::Key_Delete);
    EXPECT_EQ(form.Edited(entries[0]),
              (studio::EntryDetails{"Ann", "", "x", {"old", "shiny"}, {}}));
    EXPECT_EQ(form.Edited(entries[1]),
              (studio::EntryDetails{"Bob", "", "x", {"shiny"}, {"House"}}));
}

TEST_F(Browser, AnotherLibraryHasPicturesOfItsOwn)
{
    const auto shown = [this](CorvexMaterial::Colour colour) {
        Open({});
        studio::NamedMaterial gem{"Gem", {}};
        gem.material.Color = colour;
        file->Add(studio::EntryOfMaterial(gem, "/"));
        browser->ShowItems(1);
        return browser->grab().toImage();
    };
    const QImage red = shown(0x0000FF);
    EXPECT_NE(shown(0xFF0000), red);
}

TEST_F(Browser, ScrollsFromOutsideAndStaysWhereItWas)
{
    Open(NumberedNames(100));
    EXPECT_GT(heard.range.maximum, 1000);
    EXPECT_EQ(heard.range.page, View().viewport()->height());
    EXPECT_FALSE(View().verticalScrollBar()->isVisible());
    browser->ScrollTo(680);
    EXPECT_EQ(heard.range.position, 680);
    browser->ScrollTo(1 << 30);
    EXPECT_EQ(heard.range.position, heard.range.maximum);

    browser->ScrollTo(680);
    browser->Clear();
    browser->ShowItems(100);
    EXPECT_EQ(View().verticalScrollBar()->value(), 680) << "the same library, read again";

    browser->Clear();
    Open(NumberedNames(100));
    EXPECT_EQ(View().verticalScrollBar()->value(), 0);
}

TEST_F(Browser, LooksAtNoMoreOfALargeLibraryThanOfASmallOne)
{
    std::vector<int> lookups;
    for (const int count : {100, 10000}) {
        asked = 0;
        Open(NumberedNames(count));
        browser->grab();
        browser->ScrollTo(680);
        browser->grab();
        Search().setText("stone 77");
        browser->grab();
        Search().clear();
        lookups.push_back(asked);
    }
    EXPECT_NEAR(lookups[1], lookups[0], 60);
    EXPECT_GT(lookups[0], 20);
}

TEST_F(Browser, NameIsTypedInPlaceAndWantedOnce)
{
    Open({"Ruby", "Gold"});
    std::vector<QString> wanted;
    QObject::connect(browser, &LibraryBrowser::RenameWanted,
                     [&](std::int64_t, const QString& name) { wanted.push_back(name); });
    Click(1);
    for (const char* typed : {"  Old   Gold ", "", "Gold"}) {
        QTest::keyClick(&View(), Qt::Key_F2);
        auto* editor = View().findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->selectAll();
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, typed);
        QTest::keyClick(editor, Qt::Key_Return);
        QTest::qWait(1);
    }
    EXPECT_EQ(wanted, std::vector<QString>{"Old Gold"});
}

TEST_F(Browser, LettersTypedOverItBeginASearch)
{
    Open({"Ruby", "Gold"});
    QTest::keyClicks(&View(), "g");
    EXPECT_EQ(Search().text(), "g");
    EXPECT_EQ(View().model()->rowCount(), 1);
}

TEST_F(Browser, VanishedLibraryIsToldOnceAndIsNoException)
{
    Open(NumberedNames(3));
    std::vector<QString> messages;
    QObject::connect(browser, &LibraryBrowser::Message,
                     [&](const QString& text) { messages.push_back(text); });
    file->Add({"Damaged", "{", {}, {}});
    browser->ShowItems(4);
    browser->grab();
    EXPECT_TRUE(messages.empty()) << "it has a sign instead of a picture";
    // Fewer entries than shown, as when another program has emptied the file.
    file->Remove(file->IdAt(3));
    browser->grab();
    browser->grab();
    EXPECT_EQ(messages.size(), 1U);
}

TEST_F(Browser, EmptyStatesAreReadableOnAnyBackgroundAndDiffer)
{
    for (const CorvexMaterial::ColourBytes bytes : {CorvexMaterial::ColourBytes{0, 0, 0},
                                                    {255, 255, 255},
                                                    {128, 128, 128},
                                                    {30, 60, 160},
                                                    {255, 255, 0},
                                                    {255, 0, 0},
                                                    {0, 160, 0}}) {
        browser->SetBackColor(MakeColour(bytes));
        const QImage picture = browser->grab().toImage();
        const QRgb ground = picture.pixel(1, 1);
        EXPECT_EQ(ground, qRgb(bytes.red, bytes.green, bytes.blue));
        int contrast = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                contrast = std::max(contrast, std::abs(qGray(picture.pixel(x, y)) - qGray(ground)));
            }
        }
        EXPECT_GE(contrast, 50) << bytes.red << ' ' << bytes.green << ' ' << bytes.blue;
    }
    const QImage closed = browser->grab().toImage();
    Open({});
    const QImage empty = browser->grab().toImage();
    EXPECT_NE(empty, closed);
    Open({"Ruby"});
    Search().setText("gold");
    EXPECT_NE(browser->grab().toImage(), empty);
    browser->Clear();
    EXPECT_EQ(browser->grab().toImage(), closed);
}

}  // namespace
