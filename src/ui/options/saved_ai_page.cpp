// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/saved_ai_page.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include <exception>
#include <utility>

#include "ai/ai_files.h"
#include "platform/messages.h"
#include "skin/look.h"
#include "ui/options/heuristics_page.h"
#include "widgets/shown_text.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int roomInRow = 4;
constexpr int fileName = Qt::UserRole;  // as bytes, which may be no text

void ReportError(const std::string& title, const std::string& text) {
  platform::ShowMessage(platform::ErrorIcon, title, text, "OK");
}

void Tell(const std::string& title, const std::string& text) {
  platform::ShowMessage(platform::InformationIcon, title, text, "OK");
}

void ReportNothingSelected() {
  ReportError("Nothing selected",
              "You must select a heuristics data file to load before clicking on the load button.");
}

/// A blank between each two.
std::string ReservedCharacters() {
  std::string spaced;
  for (const char c : ai::reservedInAIFileNames) {
    if (!spaced.empty()) spaced += ' ';
    spaced += c;
  }
  return spaced;
}

}  // namespace

SavedAIPage::SavedAIPage(HeuristicsPage& heuristics, QWidget* parent)
    : QWidget(parent),
      heuristics_(heuristics),
      filesLabel_(new QLabel(u"Saved heuristics data files:"_s, this)),
      opSavedAIFiles_(new QListWidget(this)),
      load_(NewButton(*this, {"LoadAI", "LoadAIS"}, u"Load"_s, u"&Load"_s)),
      delete_(NewButton(*this, {"DeleteAI", "DeleteAIS"}, u"Delete"_s, u"&Delete"_s)),
      defaults_(NewButton(*this, {"AIDefault", "AIDefaultS"}, u"Defaults"_s, u"De&faults"_s)),
      nameLabel_(new QLabel(u"Save current heuristic settings as:"_s, this)),
      opSaveAIName_(new QLineEdit(this)),
      save_(NewButton(*this, {"SaveAI", "SaveAIS"}, u"Save"_s, u"&Save"_s)) {
  filesLabel_->setObjectName(u"Label13"_s);
  filesLabel_->setBuddy(opSavedAIFiles_);
  opSavedAIFiles_->setObjectName(u"opSavedAIFiles"_s);
  opSavedAIFiles_->setAccessibleName(filesLabel_->text());
  opSavedAIFiles_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  opSavedAIFiles_->setTextElideMode(Qt::ElideMiddle);
  nameLabel_->setObjectName(u"Label11"_s);
  nameLabel_->setBuddy(opSaveAIName_);
  opSaveAIName_->setObjectName(u"opSaveAIName"_s);
  opSaveAIName_->setAccessibleName(nameLabel_->text());
  connect(opSavedAIFiles_, &QListWidget::currentItemChanged, this,
          [this](const QListWidgetItem* item) {
            if (item)
              opSaveAIName_->setText(AsItIs(item->data(fileName).toByteArray().toStdString()));
          });
  connect(save_, &QAbstractButton::clicked, this, &SavedAIPage::SaveAIFile);
  connect(load_, &QAbstractButton::clicked, this, &SavedAIPage::LoadAIFile);
  connect(delete_, &QAbstractButton::clicked, this, &SavedAIPage::DeleteAIFile);
  connect(defaults_, &QAbstractButton::clicked, this, &SavedAIPage::RestoreDefaults);
  if (IsSimpleUI()) SetSimpleUI();
}

void SavedAIPage::SetSimpleUI() {
  auto* layout = new QGridLayout(this);
  layout->setSpacing(8);
  layout->addWidget(filesLabel_, 0, 0);
  layout->addWidget(opSavedAIFiles_, 1, 0, 4, 1);
  layout->addWidget(load_, 1, 1);
  layout->addWidget(delete_, 2, 1);
  layout->addWidget(defaults_, 4, 1);
  layout->addWidget(nameLabel_, 5, 0);
  layout->addWidget(opSaveAIName_, 6, 0);
  layout->addWidget(save_, 6, 1);
  layout->setRowStretch(3, 1);
  layout->setColumnStretch(0, 1);
  opSaveAIName_->setMinimumHeight(28);
  for (QAbstractButton* button : {save_, load_, delete_, defaults_}) button->setMinimumSize(96, 28);
}

void SavedAIPage::SetToolTips() {
  const std::pair<QWidget*, const char*> tips[] = {
      {opSavedAIFiles_, "A list of all the available heuristics data files"},
      {opSaveAIName_, "The name of the heuristics data file to create when Save is clicked"},
      {load_, "Load the heuristics data from a chosen file"},
      {save_, "Save the current heuristics data to a file"},
      {delete_, "Delete a chosen heuristics data file"},
      {defaults_, "Return the heuristics data to its origional factory default values"},
  };
  for (const auto& [control, text] : tips) {
    SetTip(*control, text);
  }
}

bool SavedAIPage::PopulateAIFileList() {
  try {
    FillList();
    return true;
  } catch (const std::exception&) {
    ReportError(
        "AI File Error",
        "There was an error locating your AI Files.  Please ensure there is a folder called "
        "'AI Files' in your Tarvolenix install directory.");
    return false;
  }
}

void SavedAIPage::FillList() {
  opSavedAIFiles_->clear();
  for (const std::string& name : ai::ListAIFiles()) {
    auto* item = new QListWidgetItem(ShownLine(name), opSavedAIFiles_);
    item->setSizeHint({0, opSavedAIFiles_->fontMetrics().height() + roomInRow});
    item->setData(fileName, QByteArray::fromStdString(name));
  }
  if (opSavedAIFiles_->count() > 0) opSavedAIFiles_->setCurrentRow(0);
}

/// Blank where none is selected.
std::string SavedAIPage::SelectedFile() const {
  const QListWidgetItem* item = opSavedAIFiles_->currentItem();
  return item ? item->data(fileName).toByteArray().toStdString() : std::string{};
}

/// What was pasted may have line ends and the like.
std::string SavedAIPage::NameToSave() const {
  QString name = opSaveAIName_->text();
  for (QChar& c : name) {
    if (c.category() == QChar::Other_Control) c = u' ';
  }
  return name.trimmed().isEmpty() ? std::string{} : name.toStdString();
}

void SavedAIPage::SaveAIFile() {
  const std::string name = NameToSave();
  if (name.empty()) {
    return ReportError("No file name.",
                       "You must enter a name for the heuristics data file in order to save it.");
  }
  if (!ai::IsAIFileName(name)) {
    return ReportError("Invalid file name.",
                       "The heuristics data file name cannot contain the following reserved "
                       "characters, " +
                           ReservedCharacters() + ".");
  }
  const std::string path = ai::AIFilePath(name);
  try {
    if (ai::AIFileExists(name) &&
        !platform::ShowMessage(platform::InformationIcon, "File already exists",
                               "The file " + path + ".AI already exists.||Overwrite?", "Overwrite",
                               "Cancel")) {
      return;
    }
    ai::WriteAIFile(name, heuristics_.CurrentMotivations());
  } catch (const std::exception&) {
    return ReportError(
        "File write error.",
        "There was an unknown error writing the heuristics data.  Please try again.");
  }
  Tell("Save complete.", "The heuristics data has been successfully saved to;|" + path +
                             ".AI||The data can be viewed on the Heuristics tab.");
  PopulateAIFileList();
}

void SavedAIPage::LoadAIFile() {
  if (!opSavedAIFiles_->currentItem()) return ReportNothingSelected();
  bool changed = false;
  bool whole = false;
  try {
    whole = !ai::ReadAIFile(SelectedFile(), [&](int row, std::int16_t value) {
      if (heuristics_.SetHListLine(row, value)) changed = true;
    });
  } catch (const std::exception&) {
    // It can't be read.
  }
  // What came before a fault is pending too.
  heuristics_.SetHeuristicSlider();
  if (changed) Q_EMIT ApplyWanted();
  if (!whole) {
    ReportError("File read error.",
                "There was an unknown error reading the heuristic data file.  Please try again.");
  } else if (changed) {
    Tell("Load complete.",
         "The heuristics data file has been successfully loaded.  The data can be viewed on the "
         "Heuristics tab.");
  } else {
    Tell("Load complete, no changes.",
         "The heuristic data loaded is the same as the current settings and nothing has changed.");
  }
}

void SavedAIPage::DeleteAIFile() {
  if (!opSavedAIFiles_->currentItem()) return ReportNothingSelected();
  const std::string name = SelectedFile();
  try {
    if (ai::AIFileExists(name) &&
        !platform::ShowMessage(platform::InformationIcon, "Confirmation",
                               "Are you sure you wish to delete the heuristics data file " +
                                   ai::AIFilePath(name) + ".AI?",
                               "Yes", "No")) {
      return;
    }
    ai::RemoveAIFile(name);
  } catch (const std::exception&) {
    return ReportError("File delete error.",
                       "There was an unknown error while deleting the heuristics data file.  It "
                       "may not have been properly deleted.  Please try again.");
  }
  PopulateAIFileList();
}

void SavedAIPage::RestoreDefaults() {
  heuristics_.ResetHeuristics();
  Tell("Defaults restored",
       "The heuristics data has been restored to the origional factory defaults.");
  Q_EMIT ApplyWanted();
}

}  // namespace ui
