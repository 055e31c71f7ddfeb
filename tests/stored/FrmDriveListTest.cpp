#include "stored/FrmDriveList.h"

#include "stored/FolderTree.h"
#include "stored/QtDriveFolders.h"
#include "tests/support/DialogWorld.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ScriptedDrives.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileSystemModel>
#include <QLineEdit>
#include <algorithm>
#include <set>

namespace quorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct FrmDriveListTest : DialogWorld<FrmDriveList> {
    FrmDriveListTest()
    {
        for (const char* folder : {"one/alpha", "one/beta", "one/gamma", "two/delta", "home"})
            std::filesystem::create_directories(Path(folder));
        drives.drives = {{Path("one"), ""}, {Path("two"), "STICK"}, {Path("home"), ""}};
        state.ChooserMode = 1;
        state.DefaultFolder = Path("one/beta");
    }
    [[nodiscard]] std::string Path(const std::string& name) const { return scratch.Path(name); }
    void Open()
    {
        shown.clear();
        Show(FrmDriveList::Parts{drives, texts, Teller(),
                                 [this](const std::string& folder) { shown.push_back(folder); }});
        tree = Part<FolderTree>("Dir1");
    }
    [[nodiscard]] std::string Text1() const { return Typed(Part<QLineEdit>("Text1")->text()); }
    [[nodiscard]] int Drive1() const { return Part<QComboBox>("Drive1")->currentIndex(); }
    void ChooseDrive(Qt::Key key) const { QTest::keyClick(Part<QComboBox>("Drive1"), key); }
    /// The row of a folder, once it and its neighbours have come in and are in order.
    [[nodiscard]] QModelIndex Row(const std::string& name) const
    {
        const QString last = Shown(name.substr(name.rfind('/') + 1));
        QModelIndexList found;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const QAbstractItemModel& model = *tree->model();
            found = model.match(tree->currentIndex().siblingAtRow(0), Qt::DisplayRole, last, 1,
                                Qt::MatchExactly | Qt::MatchWrap);
            QStringList names;
            for (int row = 0; row < model.rowCount(tree->currentIndex().parent()); ++row)
                names += tree->currentIndex().siblingAtRow(row).data().toString();
            return !found.isEmpty() && std::ranges::is_sorted(names);
        })) << name;
        return found.value(0);
    }
    void ClickFolder(const QModelIndex& index) const
    {
        tree->scrollTo(index);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(index).center());
    }
    ScratchFolder scratch;
    ScriptedDrives drives{Path("home")};
    std::vector<std::string> shown; ///< in the calling dialog's box
    FolderTree* tree = nullptr;
};

TEST_F(FrmDriveListTest, WhatIsGoneToIsTheDataFolderAtOnceAndOnlyOkKeepsIt)
{
    const std::string before = Path("one/../one/beta/"); // Cancel brings it back to the letter
    for (const Way way : {Way::Ok, Way::Enter, Way::Cancel, Way::Escape, Way::CloseBox}) {
        state.DefaultFolder = before;
        Open();
        EXPECT_EQ(state.DefaultFolder, Path("one/beta"));
        EXPECT_EQ(Text1(), Path("one/beta"));
        EXPECT_EQ(Drive1(), 0);
        ClickFolder(Row("gamma"));
        EXPECT_EQ(state.DefaultFolder, Path("one/gamma"));
        QTest::keyClick(tree, Qt::Key_Up);
        QTest::keyClick(tree, Qt::Key_Up);
        EXPECT_EQ(state.DefaultFolder, Path("one/alpha"));
        QTest::keyClick(tree, Qt::Key_G); // the first letter of a name
        EXPECT_EQ(state.DefaultFolder, Path("one/gamma"));
        EXPECT_EQ(Text1(), Path("one/gamma"));
        Leave(way);
        const std::string after = Keeps(way) ? Path("one/gamma") : before;
        EXPECT_EQ(state.DefaultFolder, after);
        EXPECT_THAT(shown, ElementsAre(after));
    }
}

TEST_F(FrmDriveListTest, AFolderThatIsNotThereChangesNothingUntilOneIsPicked)
{
    state.DefaultFolder = "C:\\";
    Open();
    EXPECT_EQ(Drive1(), 2);
    EXPECT_EQ(Part<QComboBox>("Drive1")->currentText(), Shown(Path("home") + " [Home folder]"));
    EXPECT_EQ(tree->Folder(), Shown(Path("home")));
    EXPECT_EQ(Text1(), "");
    Leave(Way::Ok);
    EXPECT_THAT(shown, ElementsAre("C:\\"));
    Open();
    ClickFolder(tree->currentIndex());
    EXPECT_EQ(Text1(), Path("home"));
    EXPECT_EQ(state.DefaultFolder, Path("home"));
    Leave(Way::Cancel);
    EXPECT_EQ(state.DefaultFolder, "C:\\");
}

TEST_F(FrmDriveListTest, ADriveThatCannotBeReadIsToldAndTheOneBeforeComesBack)
{
    drives.unreadable = {Path("two")};
    Open();
    Part<QComboBox>("Drive1")->showPopup();
    QTest::keyClick(Part<QComboBox>("Drive1")->view(), Qt::Key_Return); // the same drive is no change
    EXPECT_EQ(state.DefaultFolder, Path("one/beta"));
    ChooseDrive(Qt::Key_Down);
    EXPECT_THAT(messages, ElementsAre("The selected disk drive is not in use. Check to make sure a disk "
                                      "is inserted."));
    EXPECT_EQ(Drive1(), 0);
    EXPECT_EQ(state.DefaultFolder, Path("one/beta"));
    drives.unreadable.clear();
    ChooseDrive(Qt::Key_Down);
    EXPECT_EQ(Drive1(), 1);
    EXPECT_EQ(state.DefaultFolder, Path("two"));
    EXPECT_EQ(messages.size(), 1U);
    drives.drives[2].path = Path("gone"); // readable, but by then it is not there any more
    Open();
    ChooseDrive(Qt::Key_Down);
    EXPECT_EQ(messages.size(), 1U);
    EXPECT_EQ(Drive1(), 1);
}

TEST_F(FrmDriveListTest, AnyOtherModeChangesNothing)
{
    state.ChooserMode = 0;
    Open();
    ChooseDrive(Qt::Key_Up);
    EXPECT_EQ(Drive1(), 1);
    EXPECT_EQ(Text1(), "");
    for (const Way way : {Way::Ok, Way::Cancel}) {
        Open();
        Leave(way);
        EXPECT_EQ(state.DefaultFolder, Path("one/beta"));
        EXPECT_THAT(shown, IsEmpty());
    }
}

TEST_F(FrmDriveListTest, WhatComesInLaterMovesTheFolderIntoSightAndNothingElse)
{
    for (int number = 100; number < 400; ++number)
        std::filesystem::create_directory(Path("one/") + std::to_string(number));
    state.DefaultFolder = Path("one/gamma");
    Open();
    static_cast<void>(Row("399"));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return tree->viewport()->rect().contains(tree->visualRect(tree->currentIndex()).center()); }));
    EXPECT_EQ(tree->currentIndex().data().toString(), u"gamma"_qs);

    std::filesystem::remove(Path("one/gamma"));
    auto* const model = qobject_cast<QFileSystemModel*>(tree->model());
    for (const std::string& root : {Path("one"), std::string()}) // the toolkit reads a former root once more
        model->setRootPath(Shown(root));
    model->fetchMore(model->index(Shown(Path("one"))));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !tree->currentIndex().isValid(); }));
    EXPECT_TRUE(tree->selectionModel()->selectedIndexes().isEmpty());
    EXPECT_EQ(state.DefaultFolder, Path("one/gamma"));
    EXPECT_EQ(Text1(), Path("one/gamma"));
    Click("Command3");
    Settle();
    EXPECT_THAT(messages, ElementsAre("No folder can be made here. Choose another place."));
}

TEST_F(FrmDriveListTest, ANewFolderIsNamedInItsPlace)
{
    const auto make = [this](const char* name) {
        Click("Command3");
        QLineEdit* editor = nullptr;
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return (editor = tree->viewport()->findChild<QLineEdit*>()) != nullptr; }));
        QTest::keyClicks(editor, QLatin1String(name));
        QTest::keyClick(editor, Qt::Key_Return);
        Settle();
        EXPECT_TRUE(dialog->isVisible()); // Enter ended the naming, not the dialog
    };
    Open();
    make("May 2024");
    EXPECT_EQ(state.DefaultFolder, Path("one/beta/May 2024"));
    EXPECT_EQ(Text1(), state.DefaultFolder);
    EXPECT_THAT(messages, IsEmpty());
    for (const char* name : {"a/b", ".."}) {
        Open();
        make(name);
        EXPECT_THAT(messages, testing::SizeIs(1)) << name;
        EXPECT_EQ(state.DefaultFolder.substr(state.DefaultFolder.rfind('/')), "/New folder");
        EXPECT_TRUE(std::filesystem::is_directory(state.DefaultFolder));
    }
    EXPECT_TRUE(std::filesystem::is_directory(Path("one/beta/May 2024/New folder/New folder")));
}

TEST(QtDriveFolders, ListsTheComputersDrivesOnce)
{
    const QtDriveFolders drives;
    std::vector<std::string> paths;
    for (const Drive& drive : drives.Drives())
        paths.push_back(drive.path);
    EXPECT_THAT(paths, testing::IsSupersetOf({std::string("/"), drives.StartFolder()}));
    EXPECT_EQ(std::set(paths.begin(), paths.end()).size(), paths.size());
    const ScratchFolder scratch;
    EXPECT_TRUE(drives.IsFolder(scratch.Path()));
    EXPECT_TRUE(drives.CanRead(scratch.Path()));
    for (const std::string& missing : {scratch.Path("missing"), std::string("."), std::string()})
        EXPECT_FALSE(drives.IsFolder(missing)) << missing;
    EXPECT_FALSE(drives.CanRead(scratch.Path("missing")));
}

} // namespace
} // namespace quorvane
