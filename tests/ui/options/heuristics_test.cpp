// SPDX-License-Identifier: GPL-3.0-or-later
#include <QListWidget>

#include <memory>

#include "ai/ai_files.h"
#include "ui/options/heuristics_list.h"
#include "ui/options/heuristics_page.h"
#include "ui/options/legible_blue.h"
#include "ui/options/motivation_slider.h"
#include "ui/options/saved_ai_page.h"
#include "ui/ui_fixture.h"
#include "widgets/contrast.h"

namespace ui {
namespace {

constexpr int checkRow = 2, bishopRow = 6, queenRow = 53;

class HeuristicsTest : public testing::Test {
 protected:
  HeuristicsTest() {
    platform::Settings().SimpleUI = true;
    ai::LoadDefaultHeuristics();
    ai::Heuristics[3] = 300;
    Open();
  }

  void Open() {
    saved_ = {};
    page_ = std::make_unique<HeuristicsPage>();
    saved_ = std::make_unique<SavedAIPage>(*page_);
    QObject::connect(page_.get(), &HeuristicsPage::ApplyWanted, [this] { wanted_ = true; });
    QObject::connect(saved_.get(), &SavedAIPage::ApplyWanted, [this] { wanted_ = true; });
    page_->PopulateHeuristicsList();
    page_->SetHeuristicSlider();
    page_->resize(500, 1500);
    page_->show();
    wanted_ = false;
  }

  HeuristicsList& List() { return Find<HeuristicsList>(*page_, "opHeuristicsList"); }
  MotivationSlider& Slider() { return Find<MotivationSlider>(*page_, "opHeuristicSlider"); }
  void DoubleClick(int row) {
    const QPoint place(30, List().rowViewportPosition(row) + 5);
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, place);
  }
  void Press(Qt::Key key) { QTest::keyClick(&List(), key); }

  /// The rows with something pending.
  std::map<int, int> Pending() {
    std::map<int, int> pending;
    for (int row = 1; row < ai::heuristicRowCount; ++row) {
      const auto value = List().NewValue(row);
      EXPECT_EQ(List().item(row, 5)->font().bold(), value.has_value()) << row;
      if (value) pending[row] = *value;
    }
    return pending;
  }

  /// The titles of the messages since the last question.
  std::string Told() {
    std::string titles;
    for (const auto& message : std::exchange(desktop_.boxes.messages, {})) {
      titles += (titles.empty() ? "" : "; ") + message.title;
    }
    return titles;
  }

  QListWidget& Files() { return Find<QListWidget>(*saved_, "opSavedAIFiles"); }
  std::string& File(const char* name) {
    return desktop_.files.content[ai::AIFilePath(name) + ".AI"];
  }

  fakes::FakeDesktop desktop_;
  std::unique_ptr<HeuristicsPage> page_;
  std::unique_ptr<SavedAIPage> saved_;
  bool wanted_ = false;
};

using Pairs = std::map<int, int>;

TEST_F(HeuristicsTest, TheSliderMakesPendingWhatDiffersFromTheCurrentValue) {
  const auto press = [this](Qt::Key key) { QTest::keyClick(&Slider(), key); };
  const auto leaveAndReturn = [this] {
    List().SelectRow(queenRow);
    List().SelectRow(checkRow);
  };
  const struct {
    int row;
    const char* slider;  // at, and the stretch that it marks
    Pairs pending;
    bool wanted;
    std::vector<std::function<void()>> work;
  } rows[] = {
      {checkRow, "88 of 0 and 88", {}, false, {}},
      {checkRow, "89 of 0 and 88", {{2, 89}}, true, {[&] { press(Qt::Key_Right); }}},
      {checkRow, "88 of 0 and 88", {}, true, {[&] { press(Qt::Key_Up), press(Qt::Key_Down); }}},
      {4, "7 of -118 and 118", {{4, 7}}, true, {[&] { Slider().setValue(7); }}},
      {checkRow, "88 of 0 and 88", {}, true, {[&] { press(Qt::Key_End), DoubleClick(2); }}},
      {bishopRow, "200 of 0 and 200", {}, false, {}},
      {bishopRow, "200 of 0 and 200", {}, false, {[&] { DoubleClick(bishopRow); }}},
      {checkRow,
       "-3 of 0 and 88",
       {{2, -3}},
       true,
       {[&] { Slider().setValue(-3); }, leaveAndReturn}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(&row - rows) + ": " + row.slider);
    Open();
    List().SelectRow(row.row);
    for (const auto& step : row.work) step();
    EXPECT_EQ(Pending(), row.pending);
    EXPECT_EQ(wanted_, row.wanted);
    EXPECT_EQ(std::to_string(Slider().value()) + " of " + std::to_string(Slider().SelStart()) +
                  " and " + std::to_string(Slider().SelLength()),
              row.slider);
  }
  const ai::HeuristicTable before = ai::Heuristics;
  page_->ApplyHeuristics();
  EXPECT_EQ(ai::Heuristics[0], -3);
  EXPECT_EQ(ai::Heuristics[3], before[3]) << "never shown as it is";
  EXPECT_EQ(Pending(), Pairs{});
  EXPECT_EQ(List().CurrentValue(checkRow), -3);
}

TEST_F(HeuristicsTest, HeadingsHaveNoValueAndFoldWhatIsUnderThem) {
  const auto shown = [this] {
    int rows = 0;
    for (int row = 1; row < List().rowCount(); ++row) rows += !List().isRowHidden(row);
    return rows;
  };
  List().SelectRow(44);
  Press(Qt::Key_Left);
  EXPECT_EQ(List().Row(), 43);
  EXPECT_FALSE(Slider().isVisible() || Shows(*page_, "HLabelLow"));
  Slider().setValue(9);
  EXPECT_TRUE(Pending().empty() && !wanted_);
  Press(Qt::Key_Left);
  EXPECT_EQ(shown(), 63 - 5);
  Press(Qt::Key_Left);
  EXPECT_EQ(List().Row(), 30);
  DoubleClick(30);
  EXPECT_EQ(shown(), 63 - 18);
  Press(Qt::Key_Right);
  EXPECT_EQ(shown(), 63 - 5) << "what was folded under it stays so";
  Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  EXPECT_EQ(shown(), 63 - 10);
  List().SelectRow(33);
  EXPECT_EQ(shown(), 63 - 5);
  EXPECT_TRUE(Slider().isVisible());
  List().SetFolded(30, true);
  EXPECT_EQ(List().Row(), 30) << "what is selected stays in sight";
}

TEST_F(HeuristicsTest, DefaultsExchangeTheTwoRooksOfCastling) {
  ai::LoadDefaultHeuristics();
  Open();
  List().SetFolded(1, true);
  ui::Press(*saved_, "AIDefault");
  EXPECT_EQ(Told(), "Defaults restored");
  EXPECT_EQ(Pending(), (Pairs{{60, -58}, {61, -40}}));
  EXPECT_EQ(List().Row(), checkRow);
  EXPECT_TRUE(Slider().isVisible() && wanted_);
  EXPECT_EQ(ai::Heuristics, ai::DefaultHeuristics());
  page_->ApplyHeuristics();
  EXPECT_EQ(ai::Heuristics[51], -58);
}

TEST_F(HeuristicsTest, FilesAreReadIntoWhatIsPendingAsFarAsTheyAreGood) {
  const std::string digits(1'000'000, '7');
  const struct {
    std::string content;
    const char* told;
    Pairs pending;
  } rows[] = {
      {ai::AIFileText(ai::Heuristics), "Load complete, no changes.", {}},
      {"", "Load complete, no changes.", {}},
      {"63,1\r\n4,2,2,88", "Load complete.", {{63, 1}, {4, 2}}},
      {"2,5,4,two,6,6", "File read error.", {{2, 5}}},
      {"64,5", "File read error.", {}},
      {"1,5", "File read error.", {}},
      {"2," + digits, "File read error.", {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.content.substr(0, 30));
    Open();
    File("Bold") = row.content;
    EXPECT_TRUE(saved_->PopulateAIFileList());
    ui::Press(*saved_, "LoadAI");
    EXPECT_EQ(Told(), row.told);
    EXPECT_EQ(Pending(), row.pending);
    EXPECT_EQ(wanted_, !row.pending.empty());
    EXPECT_EQ(ai::Heuristics[0], 88);
  }
}

TEST_F(HeuristicsTest, FilesAreSavedAndDeletedAsTheUserAnswers) {
  const std::string whole = ai::AIFileText(ai::Heuristics);
  const struct {
    const char* name;
    const char* button;
    std::deque<bool> answers;
    const char* told;
    std::map<std::string, std::string> after;
  } rows[] = {
      {" ", "SaveAI", {}, "No file name.", {{"Old", "old"}}},
      {"a.b", "SaveAI", {}, "Invalid file name.", {{"Old", "old"}}},
      {"../x|", "SaveAI", {}, "Invalid file name.", {{"Old", "old"}}},
      {"Björn", "SaveAI", {}, "Save complete.", {{"Old", "old"}, {"Björn", whole}}},
      {"Old", "SaveAI", {false}, "File already exists", {{"Old", "old"}}},
      {"Old", "SaveAI", {true}, "File already exists; Save complete.", {{"Old", whole}}},
      {"Old", "DeleteAI", {false}, "Confirmation", {{"Old", "old"}}},
      {"Old", "DeleteAI", {true}, "Confirmation", {}},
  };
  List().SelectRow(checkRow);
  Slider().setValue(7);  // isn't current, so it isn't saved
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    desktop_.files.content.clear();
    File("Old") = "old";
    desktop_.files.content[ai::AIFilePath("lower.ai")] = "no file of ours";
    EXPECT_TRUE(saved_->PopulateAIFileList());
    EXPECT_EQ(Field(*saved_, "opSaveAIName").text(), u"Old"_s);
    Field(*saved_, "opSaveAIName").setText(QString::fromUtf8(row.name));
    desktop_.boxes.answers = row.answers;
    ui::Press(*saved_, row.button);
    EXPECT_EQ(Told(), row.told);
    std::map<std::string, std::string> after;
    for (const std::string& name : ai::ListAIFiles()) after[name] = File(name.c_str());
    EXPECT_EQ(after, row.after);
    EXPECT_EQ(Files().count(), static_cast<int>(row.after.size()));
  }
  EXPECT_EQ(Field(*saved_, "opSaveAIName").text(), u"Old"_s) << "an empty folder has no other";
  for (const char* button : {"LoadAI", "DeleteAI"}) {
    ui::Press(*saved_, button);
    EXPECT_EQ(Told(), "Nothing selected");
  }
}

TEST_F(HeuristicsTest, AFailureIsToldAndLeavesTheFile) {
  const struct {
    const char* button;
    std::deque<bool> answers;
    const char* told;
    bool gone;
  } rows[] = {
      {"SaveAI", {true}, "File already exists; File write error.", false},
      {"LoadAI", {}, "File read error.", false},
      {"LoadAI", {}, "File read error.", true},
      {"DeleteAI", {true}, "Confirmation; File delete error.", false},
      {"DeleteAI", {}, "File delete error.", true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.told);
    File("Old") = "2,5";
    EXPECT_TRUE(saved_->PopulateAIFileList());
    if (row.gone) desktop_.files.content.clear();
    const auto before = desktop_.files.content;
    desktop_.boxes.answers = row.answers;
    desktop_.files.FailOperation(1);
    ui::Press(*saved_, row.button);
    EXPECT_EQ(Told(), row.told);
    EXPECT_EQ(desktop_.files.content, before);
    EXPECT_TRUE(Pending().empty());
  }
  desktop_.files.FailOperation(1);
  EXPECT_FALSE(saved_->PopulateAIFileList());
  EXPECT_EQ(Told(), "AI File Error");
}

TEST(LegibleBlueTest, ItIsBlueAndFarFromEveryGround) {
  for (const char* ground : {"#ffffff", "#000000", "#308cc6", "#d0a85a", "#1c2430", "#808080"}) {
    const QColor blue = LegibleBlue(QColor(QString::fromUtf8(ground)));
    EXPECT_GT(blue.blue(), blue.red() + 50) << ground;
    EXPECT_GT(std::abs(qGray(blue.rgb()) - qGray(QColor(QString::fromUtf8(ground)).rgb())), 70)
        << ground;
  }
}

TEST(LegiblyFaintTest, AHintIsFainterThanTheTextAndLegible) {
  for (const auto& [text, ground] : {std::pair("#000000", "#ffffff"), {"#ffffff", "#202326"}}) {
    const QColor faint = LegiblyFaint(QColor(QString::fromUtf8(text)), QString::fromUtf8(ground));
    EXPECT_NE(faint, QColor(QString::fromUtf8(text))) << ground;
    EXPECT_GE(Contrast(faint, QString::fromUtf8(ground)), legibleContrast) << ground;
  }
  EXPECT_EQ(LegiblyColoured(Qt::blue, Qt::black, Qt::white), QColor(Qt::blue));
  EXPECT_GE(Contrast(LegiblyColoured(Qt::blue, Qt::yellow, Qt::black), Qt::black), legibleContrast);
}

}  // namespace
}  // namespace ui
