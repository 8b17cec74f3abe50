// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTreeWidget>

#include <set>

#include "ui/help/help_book.h"
#include "ui/help/help_window.h"
#include "ui/skin_fixture.h"

namespace ui {
namespace {

const QString& HelpFile() {
  static const QString text = [] {
    QFile file(QStringLiteral(TARVOLENIX_HELP));
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    return QString::fromUtf8(file.readAll());
  }();
  return text;
}

std::vector<QString> AllMatches(const char* pattern) {
  std::vector<QString> found;
  const QRegularExpression expression{QLatin1StringView(pattern)};
  for (const auto& match : expression.globalMatch(HelpFile())) found.push_back(match.captured(1));
  return found;
}

TEST(HelpFileTest, EveryPlaceThatAWindowAsksForIsThereOnce) {
  const HelpBook book = ReadHelpBook(HelpFile());
  // Contents, game list, board, the five pages of the options, both prints, tray, import, sounds,
  // mails set aside.
  for (const int context : {1, 3, 5, 7, 8, 9, 10, 11, 12, 13, 14, 16, 17, 20, 21}) {
    EXPECT_TRUE(book.PageOf(NameOfContext(context))) << context;
  }
  std::set<QString> names;
  for (const QString& name : AllMatches("<a name=\"([^\"]*)\"")) {
    EXPECT_TRUE(names.insert(name).second) << name.toStdString() << " stands twice";
  }
}

TEST(HelpFileTest, EveryLinkLeadsToAPage) {
  const HelpBook book = ReadHelpBook(HelpFile());
  for (const QString& link : AllMatches("href=\"([^\"]*)\"")) {
    EXPECT_TRUE(link.startsWith(u'#') && book.PageOf(link.mid(1))) << link.toStdString();
  }
  EXPECT_GT(book.index.size(), 50u);
}

TEST(HelpFileTest, EveryPictureIsThere) {
  const auto pictures = AllMatches("<img src=\"Pictures/help/([^\"]*)\" alt=\"[^\"]");
  const QDir folder(QFileInfo(QStringLiteral(TARVOLENIX_HELP)).path() + u"/pictures"_s);
  EXPECT_EQ(pictures.size(), AllMatches("<img( )").size())
      << "one from elsewhere, or without words";
  for (const QString& picture : pictures) {
    EXPECT_TRUE(folder.exists(picture)) << picture.toStdString();
  }
}

TEST(HelpBookTest, FindsThePagesWithEachOfTheWords) {
  const HelpBook book = ReadHelpBook(
      u"<h1><a name=\"a\">Mail</a></h1><p>The board &amp; the <b>mov</b>es.</p>"
      "<h2><a name=\"b\">Board</a></h2><p>moves</p><h1><a name=\"c\">Castling</a></h1>"_s);
  using Pages = std::vector<std::size_t>;
  EXPECT_EQ(book.PagesWith(u"  MOVES  board "_s), (Pages{1, 0})) << "its title comes first";
  EXPECT_EQ(book.PagesWith(u"board &"_s), Pages{0});
  EXPECT_EQ(book.PagesWith(u"href"_s), Pages{}) << "no reader sees it";
  EXPECT_EQ(book.PagesWith(u" "_s), Pages{});
}

class HelpViewerTest : public SkinTest {
 protected:
  HelpViewerTest() {
    QFile file(QString::fromStdString(Process().ProgramFolder) + u"tvchess.hlp"_s);
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(HelpFile().toUtf8()) > 0);
  }

  QTextBrowser& Text() { return Find<QTextBrowser>(*viewer_.Window(), "Text"); }
  QString Shown() { return Text().toPlainText().section(u'\n', 0, 0); }
  QString InContents() {
    return Find<QTreeWidget>(*viewer_.Window(), "Contents").currentItem()->text(0);
  }

  HelpViewer viewer_;
};

TEST_F(HelpViewerTest, OpensAtAPlaceFollowsLinksAndGoesBack) {
  viewer_.ShowHelp(platform::HelpOfBoard);
  EXPECT_EQ(Shown(), u"The board"_s);
  EXPECT_EQ(InContents(), u"The board"_s);
  for (const QString& nowhere :
       {u"#castling-is-nowhere"_s, u"https://tarvolenix.example"_s, u"file:///etc/passwd"_s}) {
    Text().setSource(QUrl(nowhere));
    EXPECT_EQ(Shown(), u"The board"_s) << "left the help";
  }
  Text().setSource(QUrl(u"#ending"_s));
  EXPECT_EQ(Shown(), u"How a game ends"_s);
  EXPECT_EQ(InContents(), u"How a game ends"_s);
  Press(*viewer_.Window(), "Back");
  EXPECT_EQ(Shown(), u"The board"_s);
  viewer_.ShowHelp(999);
  EXPECT_EQ(Shown(), u"Welcome"_s);
}

TEST_F(HelpViewerTest, CanBeReadWhileADialogIsUpAndGoesWithEscape) {
  QDialog dialog;
  dialog.setModal(true);
  dialog.show();
  viewer_.ShowHelp(1);
  EXPECT_EQ(viewer_.Window()->parentWidget(), &dialog) << "shut out by the dialog";
  EXPECT_TRUE(viewer_.Window()->isWindow());
  QTest::keyClick(viewer_.Window(), Qt::Key_Escape);
  EXPECT_FALSE(viewer_.Window()->isVisible());
  viewer_.ShowHelp(1);
  viewer_.CloseHelp();
  EXPECT_FALSE(viewer_.Window()->isVisible());
}

TEST_F(HelpViewerTest, AMissingFileIsToldInASentence) {
  EXPECT_TRUE(QFile::remove(QString::fromStdString(Process().ProgramFolder) + u"tvchess.hlp"_s));
  viewer_.ShowHelp(1);
  EXPECT_EQ(viewer_.Window(), nullptr);
  EXPECT_EQ(desktop_.LastMessage().first, "Help");
}

}  // namespace
}  // namespace ui
