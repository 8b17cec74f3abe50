// SPDX-License-Identifier: GPL-3.0-or-later
// What the Board window offers beside moves: a draw and its answer, and a surrender.
#include <QMenu>

#include "store/queries.h"
#include "ui/board/board_window_fixture.h"

namespace ui {
namespace {

const PlayedEntry e4{"5254", "e4"}, e5{"5755", "e5"};
const PlayedEntry evasOffer{"5858", "Draw offer"}, ownOffer{"5151", "Draw offer"};

class DrawOfferTest : public BoardWindowTest {
 protected:
  /// Takes an entry of the menu of actions, which the user opens in the way of the look.
  void ChooseAction(const QString& caption) {
    QTimer::singleShot(0, window_, [caption] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      for (QAction* action : menu->actions()) {
        if (action->text() != caption) continue;
        EXPECT_TRUE(action->isEnabled());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      }
      menu->close();
    });
    if (platform::Settings().SimpleUI) {
      auto& picture = Find("CBoard");
      Q_EMIT picture.customContextMenuRequested(picture.rect().center());
    } else {
      QTest::mousePress(&Find("Menu1Button"), Qt::LeftButton);
    }
  }

  /// Whether both buttons of an answer are there, or neither.
  bool IsAsked() const {
    const bool asked = Shows("AcceptDraw");
    EXPECT_EQ(Shows("DeclineDraw"), asked);
    return asked;
  }

  /// Sends the pending entry; what is in the mail and in the store then.
  void ExpectSent(const std::string& text, const std::string& comment, std::int16_t status) {
    Click(board::SendButton);
    EXPECT_FALSE(window_ && window_->isVisible());
    ASSERT_EQ(desktop_.mail.sent.size(), 1U);
    EXPECT_NE(desktop_.mail.sent.front().text.find('|' + text + '|' + comment), std::string::npos)
        << desktop_.mail.sent.front().text;
    store::GameRecords games;
    store::MoveRecords moves;
    ASSERT_TRUE(store::SelectGames(games, "Game_ID;1") && store::SelectMoves(moves, 1));
    EXPECT_EQ(games.front().GAME_STATUS, status);
    EXPECT_EQ(moves.back().MoveText, text);
    EXPECT_EQ(moves.back().MoveComment, comment);
  }
};

TEST_F(DrawOfferTest, AnOfferIsAnsweredByItsButtonsAndTheAnswerCanBeTakenBack) {
  const struct {
    const char* button;
    const char* otherButton;
    const char* entry;
    std::int16_t status;
  } rows[] = {{"AcceptDraw", "DeclineDraw", "1/2-1/2", store::GameDrawn},
              {"DeclineDraw", "AcceptDraw", "Decline", store::DrawOfferSent}};
  for (const Look look : {Look::Skinned, Look::Plain}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.entry);
      Open({e4, evasOffer}, look);
      ASSERT_TRUE(IsAsked());
      EXPECT_FALSE(Button(board::SendButton).isEnabled()) << "before an answer is given";
      Click(row.otherButton);
      EXPECT_FALSE(IsAsked());
      Click(board::UndoButton);
      EXPECT_EQ(window_->focusWidget(), &Find("CBoard")) << "and not the button that closes";
      ASSERT_TRUE(IsAsked());
      EXPECT_FALSE(Button(board::SendButton).isEnabled());
      Find(row.button).setFocus();
      QTest::keyClick(window_->focusWidget(), Qt::Key_Return);
      EXPECT_FALSE(IsAsked());
      ExpectSent(row.entry, "", row.status);
    }
  }
}

TEST_F(DrawOfferTest, TheButtonsAndTheSignComeOnlyWithAnOfferOfTheOpponents) {
  const struct {
    const char* name;
    std::vector<PlayedEntry> entries;
    int chosen;
    bool asked, sign;
  } rows[] = {
      {"an offer", {e4, evasOffer}, 1, true, true},
      {"his own offer", {e4, e5, ownOffer}, 2, false, false},
      {"he looks at an earlier move", {e4, evasOffer}, 0, false, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Open(row.entries, Look::Skinned);
    ChooseEntry(row.chosen);
    EXPECT_EQ(IsAsked(), row.asked);
    EXPECT_EQ(Shows("DrawLogo"), row.sign);
    EXPECT_EQ(Shows("TVLogo"), !row.sign);
  }
}

TEST_F(DrawOfferTest, TheUserOffersADrawOrSurrenders) {
  const auto fromMenu = [this](const QString& caption) {
    return [this, caption] { ChooseAction(caption); };
  };
  const struct {
    const char* name;
    std::function<void()> act;
    const char* entry;
    std::int16_t status;
    Look look;
  } rows[] = {
      {"offer", fromMenu(u"Offer a draw"_s), "Draw offer", store::DrawOfferSent, Look::Skinned},
      {"surrender", fromMenu(u"Surrender game"_s), "0-1", store::GameLost, Look::Plain},
      {"by the button", [this] { Click("Toolbar1_6"); }, "0-1", store::GameLost, Look::Skinned},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Open({e4, e5}, row.look);
    QTest::keyClicks(&Comment(), u"Thank you"_s);
    row.act();
    EXPECT_EQ(LastMove(), row.entry);
    EXPECT_FALSE(board::Controls(Game()).surrender) << "one such entry is enough";
    Click(board::UndoButton);
    EXPECT_EQ(LastMove(), "e5");
    row.act();
    if (row.status == store::GameLost) {
      Click(board::SendButton);  // and goes back, which is what Enter does
      EXPECT_EQ(desktop_.boxes.messages.back().title, "Give the game up?");
      EXPECT_TRUE(desktop_.mail.sent.empty());
      desktop_.boxes.answers = {false};
    }
    ExpectSent(row.entry, "Thank you", row.status);
  }
}

}  // namespace
}  // namespace ui
