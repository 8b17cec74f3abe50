// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/chess_set_page.h"

#include <QDir>
#include <QGridLayout>
#include <QImageReader>
#include <QLabel>

#include <exception>

#include "desktop/picture_folders.h"
#include "platform/messages.h"
#include "platform/setting_variables.h"
#include "skin/look.h"
#include "ui/options/labelled_box.h"
#include "ui/options/name_list.h"
#include "ui/options/set_preview.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Settings;

namespace {

constexpr QLatin1StringView boardFile(".jpg");

QLabel* NewLabel(QWidget* page, const char* name, const QString& caption) {
  auto* label = new QLabel(caption, page);
  label->setObjectName(QLatin1StringView(name));
  return label;
}

/// The stems of the board pictures in a set's folder.
QStringList BoardsOf(const QString& set) {
  QStringList boards;
  for (const QString& file :
       QDir(desktop::PictureFolder(desktop::chessSets, set)).entryList(QDir::Files, QDir::Name)) {
    if (file.endsWith(boardFile)) boards << file.chopped(boardFile.size());
  }
  return boards;
}

}  // namespace

ChessSetPage::ChessSetPage(QWidget* parent)
    : QWidget(parent),
      Label8_(NewLabel(this, "Label8", u"Chess set"_s)),
      opChessSet_(new NameList("opChessSet", Label8_->text(), this)),
      Label9_(NewLabel(this, "Label9", u"Chess board"_s)),
      opChessBoard_(new NameList("opChessBoard", Label9_->text(), this)),
      opCoordinates_(new LabelledBox("opCoordinates", "Always show coordinates?", this)),
      opPairs_(new LabelledBox("opPairs", "Moves in pairs: 1. e4 e5?", this)),
      pCBoard_(new SetPreview(this)) {
  Label8_->setBuddy(opChessSet_);
  Label9_->setBuddy(opChessBoard_);
  connect(opChessSet_, &NameList::UserSelected, this, [this] {
    PopulateBoardList(opChessBoard_->Selected());
    PreviewSet();
    Q_EMIT ApplyWanted();
  });
  connect(opChessBoard_, &NameList::UserSelected, this, [this] {
    PreviewSet();
    Q_EMIT ApplyWanted();
  });
  for (const LabelledBox* box : {opCoordinates_, opPairs_}) {
    connect(box, &QCheckBox::clicked, this, &ChessSetPage::ApplyWanted);
  }
  if (IsSimpleUI()) SetSimpleUI();
}

void ChessSetPage::SetSimpleUI() {
  auto* layout = new QGridLayout(this);
  layout->setSpacing(8);
  layout->addWidget(Label8_, 0, 0, 1, 2);
  layout->addWidget(opChessSet_, 1, 0, 1, 2);
  layout->addWidget(Label9_, 2, 0, 1, 2);
  layout->addWidget(opChessBoard_, 3, 0, 1, 2);
  int row = 4;
  for (LabelledBox* box : {opCoordinates_, opPairs_}) {
    layout->addWidget(box, row, 0);
    layout->addWidget(&box->Caption(), row++, 1);
  }
  layout->addWidget(pCBoard_, 0, 2, row, 1);
  layout->setColumnStretch(1, 2);
  layout->setColumnStretch(2, 3);
}

void ChessSetPage::LoadOptions() {
  PopulateSetList();
  PopulateBoardList();
  opCoordinates_->setChecked(Settings().Coordinates);
  opPairs_->setChecked(Settings().Pairs);
}

void ChessSetPage::SetOptions() {
  Settings().ChessSet = opChessSet_->Selected().toStdString();
  Settings().ChessBoard = opChessBoard_->Selected().toStdString();
  Settings().Coordinates = opCoordinates_->isChecked();
  Settings().Pairs = opPairs_->isChecked();
}

bool ChessSetPage::HasSet() const {
  const QString set = opChessSet_->Selected();
  return !set.isEmpty() && QDir(desktop::PictureFolder(desktop::chessSets, set)).exists();
}

bool ChessSetPage::HasBoard() const {
  return !opChessBoard_->Selected().isEmpty() && QFile::exists(BoardPath());
}

QString ChessSetPage::BoardPath() const {
  return desktop::PictureFolder(desktop::chessSets, opChessSet_->Selected()) +
         opChessBoard_->Selected() + boardFile;
}

void ChessSetPage::PopulateSetList() {
  opChessSet_->Clear();
  try {
    const QStringList sets = desktop::PictureFolders(desktop::chessSets);
    opChessSet_->AddNames(sets);
    if (!opChessSet_->Mark(AsItIs(Settings().ChessSet)) && !sets.isEmpty()) {
      opChessSet_->Select(sets.front());
    }
  } catch (const std::exception&) {
    platform::ShowMessage(
        platform::ErrorIcon, "Chess set error",
        "There was an error locating your chess sets.  Please ensure you have a folder called "
        "Graphics within your Tarvolenix install folder.",
        "OK");
  }
}

void ChessSetPage::PopulateBoardList(const QString& previous) {
  const QString set = opChessSet_->Selected();
  opChessBoard_->Clear();
  if (set.isEmpty()) return;
  opChessBoard_->AddNames(BoardsOf(set));
  if (set == AsItIs(Settings().ChessSet)) {
    opChessBoard_->Mark(AsItIs(Settings().ChessBoard));
  } else if (!previous.isEmpty()) {
    opChessBoard_->Select(previous);
  }
}

void ChessSetPage::PreviewSet() { pCBoard_->ShowSheet(QImage(BoardPath())); }

void ChessSetPage::SetToolTips() {
  SetTip(*opChessSet_, "The chess set to use when playing chess");
  SetTip(*opChessBoard_, "The chess board variant to use when playing chess");
  opCoordinates_->SetTip("Whether to leave the coordinates on the board for good");
  opPairs_->SetTip("Whether to list White's move and Black's answer side by side");
}

}  // namespace ui
