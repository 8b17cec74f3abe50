// SPDX-License-Identifier: GPL-3.0-or-later
// The one window in which the user changes settings: six pages behind tabs. What he does counts
// from Apply or OK on, but for the method and the sound of notifications and the files of styles,
// which are changed at once. The settings themselves are stored when the program ends.
#pragma once

#include <QDialog>

#include <array>
#include <functional>

class QAbstractButton;
class QStackedLayout;
class QTabBar;

namespace ui {

class ChessSetPage;
class GeneralPage;
class HeuristicsPage;
class NotificationPage;
class SavedAIPage;
class SkinsPage;

class OptionsPage : public QDialog {
  Q_OBJECT

 public:
  static constexpr int tabCount = 6;

  /// `pickSound` asks for a sound file and puts it into the settings.
  explicit OptionsPage(std::function<void()> pickSound, QWidget* parent = nullptr);

  /// False where the window can't be shown; the user was told.
  bool IsOpen() const { return open_; }

  /// Whether the pages can be applied; else the user was told why not.
  bool OptionsValid() const;

  /// From the pages to the settings. False where they aren't valid, or another skin failed.
  bool SetOptions();

  /// Shows a page, by its number from 1.
  void ChangeTab(int tab);

  void done(int result) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddPages(std::function<void()> pickSound);
  void AddButtons();
  void AddTabs();
  void AddPageKeys();
  void TurnPage(int by);
  void SetSimpleUI();
  bool Load();
  void LoadOptions();
  void EnableApply(bool flag);
  void RefreshInterfaceButtons();
  void SetToolTips();
  void Apply();
  void ShowHelp() const;
  QWidget& Page(int tab) const { return *pages_[static_cast<std::size_t>(tab - 1)]; }

  GeneralPage* general_;
  NotificationPage* notification_;
  ChessSetPage* chessSet_;
  HeuristicsPage* heuristics_;
  SavedAIPage* savedAI_;
  SkinsPage* skins_;
  std::array<QWidget*, tabCount> pages_{};
  std::array<QAbstractButton*, tabCount> tabs_{};  // of the skinned look
  QTabBar* tabStrip_ = nullptr;                    // of the plain look, as the next
  QStackedLayout* plainPages_ = nullptr;
  QAbstractButton* ok_;
  QAbstractButton* cancel_;
  QAbstractButton* apply_;
  QAbstractButton* help_;
  int tab_ = 1;
  bool applies_ = false;
  bool open_ = false;
};

}  // namespace ui
