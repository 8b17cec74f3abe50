// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/help/help_window.h"

#include <QApplication>
#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

#include "platform/messages.h"
#include "platform/process_state.h"
#include "skin/look.h"
#include "ui/help/help_text.h"
#include "widgets/front_window.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize usualSize(900, 640);
constexpr int sideWidth = 280;
constexpr int nameRole = Qt::UserRole;
enum Side { ContentsSide, IndexSide, SearchSide };
constexpr qreal smallestText = 9, largestText = 28;  // points

QToolButton* NewTool(const QString& name, const QString& text, const QString& tip,
                     const QKeySequence& keys) {
  auto* tool = new QToolButton;
  tool->setObjectName(name);
  tool->setText(text);
  tool->setToolTip(tip + u" ("_s + keys.toString(QKeySequence::NativeText) + u')');
  tool->setAccessibleName(tip);
  tool->setShortcut(keys);
  tool->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  tool->setFocusPolicy(Qt::StrongFocus);
  tool->setMinimumHeight(28);
  return tool;
}

/// A field, and what it finds below it.
QWidget* NewSide(QLineEdit* field, QListWidget* list) {
  field->setClearButtonEnabled(true);
  field->setAccessibleName(field->placeholderText());
  auto* side = new QWidget;
  auto* layout = new QVBoxLayout(side);
  layout->setContentsMargins(0, 8, 0, 0);
  layout->addWidget(field);
  layout->addWidget(list, 1);
  return side;
}

}  // namespace

HelpWindow::HelpWindow(HelpBook book)
    : book_(std::move(book)),
      sides_(new QTabWidget),
      contents_(new QTreeWidget),
      filter_(new QLineEdit),
      index_(new QListWidget),
      words_(new QLineEdit),
      found_(new QListWidget),
      text_(new HelpText(book_)) {
  setObjectName(u"HelpWindow"_s);
  setWindowTitle(u"Tarvolenix help"_s);
  sides_->setAccessibleName(u"Ways into the help"_s);
  sides_->addTab(NewContents(), u"&Contents"_s);
  sides_->addTab(NewIndex(), u"&Index"_s);
  sides_->addTab(NewSearch(), u"&Search"_s);
  contents_->setAccessibleName(u"Contents"_s);
  text_->setObjectName(u"Text"_s);
  text_->setAccessibleName(u"Page of the help"_s);
  auto* splitter = new QSplitter;
  splitter->addWidget(sides_);
  splitter->addWidget(text_);
  splitter->setStretchFactor(1, 1);
  const int side = std::max(sideWidth, sides_->tabBar()->sizeHint().width());  // large letters
  splitter->setSizes({side, usualSize.width() - side});
  splitter->setChildrenCollapsible(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 8, 8, 8);
  layout->setSpacing(8);
  layout->addLayout(NewTools());
  layout->addWidget(splitter, 1);
  Connect();
  ChangeTextSize(1);  // read at a greater distance than a button
  resize(usualSize.boundedTo(screen()->availableGeometry().size() * 0.9));
  TakeDialogLook(*this);
}

QWidget* HelpWindow::NewContents() {
  contents_->setObjectName(u"Contents"_s);
  contents_->setHeaderHidden(true);
  QTreeWidgetItem* chapter = nullptr;
  for (const HelpPage& page : book_.pages) {
    auto* item =
        page.level > 1 && chapter ? new QTreeWidgetItem(chapter) : new QTreeWidgetItem(contents_);
    item->setText(0, page.title);
    item->setData(0, nameRole, page.name);
    if (page.level == 1) chapter = item;
  }
  contents_->expandAll();
  return contents_;
}

QWidget* HelpWindow::NewIndex() {
  filter_->setObjectName(u"IndexFilter"_s);
  filter_->setPlaceholderText(u"Type a word"_s);
  index_->setObjectName(u"Index"_s);
  for (const IndexWord& word : book_.index) {
    auto* item = new QListWidgetItem(word.word, index_);
    item->setData(nameRole, word.name);
  }
  return NewSide(filter_, index_);
}

QWidget* HelpWindow::NewSearch() {
  words_->setObjectName(u"SearchWords"_s);
  words_->setPlaceholderText(u"Words on the page"_s);
  found_->setObjectName(u"Found"_s);
  auto* key = new QShortcut(QKeySequence::Find, this);
  connect(key, &QShortcut::activated, this, [this] {
    sides_->setCurrentIndex(SearchSide);
    words_->setFocus();
    words_->selectAll();
  });
  return NewSide(words_, found_);
}

QHBoxLayout* HelpWindow::NewTools() {
  auto* back = NewTool(u"Back"_s, u"Back"_s, u"The page before"_s, QKeySequence(u"Alt+Left"_s));
  auto* forward =
      NewTool(u"Forward"_s, u"Forward"_s, u"The page after"_s, QKeySequence(u"Alt+Right"_s));
  back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
  forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
  connect(back, &QToolButton::clicked, text_, &QTextBrowser::backward);
  connect(forward, &QToolButton::clicked, text_, &QTextBrowser::forward);
  connect(text_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(text_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  for (QToolButton* button : {back, forward}) button->setEnabled(false);

  auto* smaller = NewTool(u"Smaller"_s, u"A\u2212"_s, u"Smaller text"_s, QKeySequence::ZoomOut);
  auto* larger = NewTool(u"Larger"_s, u"A+"_s, u"Larger text"_s, QKeySequence::ZoomIn);
  connect(smaller, &QToolButton::clicked, this, [this] { ChangeTextSize(-1); });
  connect(larger, &QToolButton::clicked, this, [this] { ChangeTextSize(1); });

  auto* tools = new QHBoxLayout;
  tools->setSpacing(4);
  for (QWidget* tool : {back, forward}) tools->addWidget(tool);
  tools->addStretch();
  for (QWidget* tool : {smaller, larger}) tools->addWidget(tool);
  if (!IsSimpleUI()) tools->addWidget(NewClose());
  return tools;
}

/// What the desktop's own frame would have.
QWidget* HelpWindow::NewClose() {
  auto* button = NewTool(u"Close"_s, u"Close"_s, u"Close the help"_s, QKeySequence(Qt::Key_Escape));
  connect(button, &QToolButton::clicked, this, &QWidget::close);
  return button;
}

void HelpWindow::Connect() {
  const auto openItem = [this](const QTreeWidgetItem* item) {
    if (item) text_->Open(item->data(0, nameRole).toString());
  };
  connect(contents_, &QTreeWidget::currentItemChanged, this, openItem);
  connect(contents_, &QTreeWidget::itemClicked, this, openItem);
  const auto openWord = [this](const QListWidgetItem* item) {
    if (item) text_->Open(item->data(nameRole).toString());
  };
  connect(index_, &QListWidget::itemClicked, this, openWord);
  connect(index_, &QListWidget::itemActivated, this, openWord);
  connect(filter_, &QLineEdit::textChanged, this, &HelpWindow::FilterIndex);
  connect(filter_, &QLineEdit::returnPressed, this,
          [this, openWord] { openWord(index_->currentItem()); });
  connect(words_, &QLineEdit::textChanged, this, &HelpWindow::Search);
  connect(words_, &QLineEdit::returnPressed, this, [this] { OpenFound(found_->currentItem()); });
  connect(found_, &QListWidget::itemClicked, this, &HelpWindow::OpenFound);
  connect(found_, &QListWidget::itemActivated, this, &HelpWindow::OpenFound);
  connect(text_, &QTextBrowser::sourceChanged, this, &HelpWindow::FollowPage);
}

/// The contents show where the reader is, however he came there.
void HelpWindow::FollowPage(const QUrl& url) {
  const QString& name = book_.pages[text_->PageAt(url)].name;
  for (QTreeWidgetItemIterator it(contents_); *it; ++it) {
    if ((*it)->data(0, nameRole).toString() != name) continue;
    const QSignalBlocker quiet(contents_);
    contents_->setCurrentItem(*it);
  }
}

void HelpWindow::FilterIndex(const QString& text) {
  QListWidgetItem* first = nullptr;
  for (int row = 0; row < index_->count(); ++row) {
    QListWidgetItem* item = index_->item(row);
    item->setHidden(!item->text().contains(text.trimmed(), Qt::CaseInsensitive));
    if (!first && !item->isHidden()) first = item;
  }
  index_->setCurrentItem(first);
}

void HelpWindow::Search(const QString& words) {
  found_->clear();
  for (const std::size_t page : book_.PagesWith(words)) {
    auto* item = new QListWidgetItem(book_.pages[page].title, found_);
    item->setData(nameRole, book_.pages[page].name);
  }
  if (found_->count() == 0 && !WordsOf(words).empty()) {
    (new QListWidgetItem(u"No page has these words"_s, found_))->setFlags(Qt::NoItemFlags);
  }
  found_->setCurrentRow(0);
}

void HelpWindow::OpenFound(const QListWidgetItem* page) {
  if (!page || !page->flags().testFlag(Qt::ItemIsEnabled)) return;
  text_->Open(page->data(nameRole).toString());
  text_->Mark(words_->text());
}

void HelpWindow::ChangeTextSize(int step) {
  QFont font = text_->font();
  font.setPointSizeF(std::clamp(font.pointSizeF() + step, smallestText, largestText));
  for (QWidget* part :
       std::initializer_list<QWidget*>{text_, contents_, filter_, index_, words_, found_}) {
    part->setFont(font);
  }
}

void HelpWindow::Open(const QString& name) {
  text_->Open(book_.PageOf(name) ? name : book_.pages.front().name);
  sides_->setCurrentIndex(ContentsSide);
  text_->setFocus();
}

void HelpWindow::OpenIndex() {
  if (text_->source().isEmpty()) text_->Open(book_.pages.front().name);
  sides_->setCurrentIndex(IndexSide);
  filter_->setFocus();
  filter_->selectAll();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    QWidget::keyPressEvent(event);
  }
}

HelpViewer::~HelpViewer() { delete window_; }

/// Null where there is no help to show; it was told.
HelpWindow* HelpViewer::Prepare() {
  QWidget* dialog = QApplication::activeModalWidget();
  if (!window_) {
    QFile file(AsItIs(platform::Process().ProgramFolder) + u"tvchess.hlp"_s);
    HelpBook book;
    if (file.open(QFile::ReadOnly)) book = ReadHelpBook(QString::fromUtf8(file.readAll()));
    book.folder = AsItIs(platform::Process().ProgramFolder);
    if (book.pages.empty()) {
      platform::ShowMessage(
          platform::InformationIcon, "Help",
          "The help can't be shown, because its file tvchess.hlp is missing from the program's "
          "folder or can't be read.",
          "OK");
      return nullptr;
    }
    window_ = new HelpWindow(std::move(book));
  }
  // A dialog lets nobody use any window but its own.
  if (dialog != window_->parentWidget()) {
    window_->setParent(dialog, window_->windowFlags());
  }
  if (!window_->isVisible()) ShowInTheMiddle(*window_);
  BringToFront(*window_);
  return window_;
}

void HelpViewer::ShowHelp(int context) {
  if (HelpWindow* window = Prepare()) window->Open(NameOfContext(context));
}

void HelpViewer::ShowHelpIndex() {
  if (HelpWindow* window = Prepare()) window->OpenIndex();
}

void HelpViewer::CloseHelp() {
  if (window_) window_->close();
}

}  // namespace ui
