// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDialog>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeWidget>

#include <set>

#include "skin_fixture.h"
#include "ui/help/help_book.h"
#include "ui/help/help_window.h"

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
  for (const int context : {1, 3, 5, 7, 8, 9, 10, 11, 12, 13, 14, 16, 17, 20}) {
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

TEST(HelpFileTest, PagesAndIndexAreReadAsTheyStand) {
  const HelpBook book = ReadHelpBook(
      u"<p>for browsers</p><h1><a name=\"one\">One &amp; <b>only</b></a></h1><p>text</p>\n"
      "<h2><a name=\"context-4\"></a><a name=\"two\">Two</a></h2>"
      "<h1><a name=\"index\">Index</a></h1><a href=\"#two\">zebra</a><a href=\"#one\">Ape</a>"_s);
  ASSERT_EQ(book.pages.size(), 2u);
  EXPECT_EQ(book.pages[0].title, u"One & only"_s);
  EXPECT_EQ(book.pages[1].level, 2);
  EXPECT_EQ(book.PageOf(u"context-4"_s), std::optional<std::size_t>(1));
  EXPECT_FALSE(book.PageOf(u"index"_s));
  ASSERT_EQ(book.index.size(), 2u);
  EXPECT_EQ(book.index[0].word, u"Ape"_s);
  EXPECT_EQ(book.index[1].name, u"two"_s);
}

class HelpViewerTest : public SkinTest {
 protected:
  HelpViewerTest() {
    QFile file(QString::fromStdString(Process().ProgramFolder) + u"tvchess.hlp"_s);
    EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(HelpFile().toUtf8()) > 0);
  }

  template <typename Control>
  Control& Find(const char* name) {
    return *viewer_.Window()->findChild<Control*>(QLatin1StringView(name));
  }
  QString Shown() { return Find<QTextBrowser>("Text").toPlainText().section(u'\n', 0, 0); }
  QString InContents() { return Find<QTreeWidget>("Contents").currentItem()->text(0); }

  HelpViewer viewer_;
};

TEST_F(HelpViewerTest, OpensAtAPlaceFollowsLinksAndGoesBack) {
  viewer_.ShowHelp(platform::HelpOfBoard);
  EXPECT_EQ(Shown(), u"The board"_s);
  EXPECT_EQ(InContents(), u"The board"_s);
  auto& text = Find<QTextBrowser>("Text");
  text.setSource(QUrl(u"#castling-is-nowhere"_s));
  text.setSource(QUrl(u"https://tarvolenix.example"_s));
  text.setSource(QUrl(u"file:///etc/passwd"_s));
  EXPECT_EQ(Shown(), u"The board"_s) << "left the help";
  text.setSource(QUrl(u"#ending"_s));
  EXPECT_EQ(Shown(), u"How a game ends"_s);
  EXPECT_EQ(InContents(), u"How a game ends"_s);
  Find<QToolButton>("Back").click();
  EXPECT_EQ(Shown(), u"The board"_s);
  Find<QToolButton>("Forward").click();
  EXPECT_EQ(Shown(), u"How a game ends"_s);
  viewer_.ShowHelp(999);
  EXPECT_EQ(Shown(), u"Welcome"_s);
}

TEST_F(HelpViewerTest, EveryIndexWordOpensAPageWithAText) {
  viewer_.ShowHelpIndex();
  auto& index = Find<QListWidget>("Index");
  for (int row = 0; row < index.count(); ++row) {
    Q_EMIT index.itemActivated(index.item(row));
    EXPECT_GT(Find<QTextBrowser>("Text").toPlainText().size(), 80) << row;
  }
}

TEST_F(HelpViewerTest, TheIndexIsFilteredAndEnterOpensTheFirstWordLeft) {
  viewer_.ShowHelpIndex();
  auto& filter = Find<QLineEdit>("IndexFilter");
  QTest::keyClicks(&filter, u"CASTL"_s);
  auto& index = Find<QListWidget>("Index");
  int visible = 0;
  for (int row = 0; row < index.count(); ++row) visible += index.item(row)->isHidden() ? 0 : 1;
  EXPECT_EQ(visible, 1);
  QTest::keyClick(&filter, Qt::Key_Return);
  EXPECT_EQ(Shown(), u"Castling, en passant, promotion"_s);
}

TEST_F(HelpViewerTest, TextSizeChangesWithinBounds) {
  viewer_.ShowHelp(1);
  const auto size = [this] { return Find<QTextBrowser>("Text").font().pointSizeF(); };
  const qreal usual = size();
  Find<QToolButton>("Larger").click();
  EXPECT_EQ(size(), usual + 1);
  for (int i = 0; i < 100; ++i) Find<QToolButton>("Smaller").click();
  EXPECT_EQ(size(), 9);
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
