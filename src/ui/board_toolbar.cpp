// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board_toolbar.h"

#include <QGridLayout>
#include <QPushButton>

#include <iterator>

#include "platform/process_state.h"
#include "ui/look.h"
#include "ui/strip_button.h"
#include "ui/window_skin.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

/// In the order in which they stand.
struct ToolbarEntry {
  int button;
  bool inSimpleUI;
  const char* toolTip;
};
constexpr ToolbarEntry entries[] = {
    {board::ViewButton, true, "VIEW - Toggle between board views"},
    {board::CoordinatesButton, true, "COORDINATES - Display the board coordinates"},
    {board::UndoButton, true, "UNDO - Reverse your last move"},
    {board::SendButton, true, "SEND - Send the move to your opponent"},
    {board::ResendButton, true, "RESEND - Send your last move to your opponent again"},
    {board::SurrenderButton, false, "SURRENDER - Surrender the game"},
    {board::CloseButton, true, "CLOSE - Close the form"},
};

std::size_t Slot(int button) { return static_cast<std::size_t>(button); }

struct ButtonState {  // NOLINT(clang-analyzer-optin.performance.Padding)
  int button;
  const char* plainCaption;
  const char* caption;
  const char* meaning;  ///< to those who don't see the picture
  bool enabled;
};

}  // namespace

BoardToolbar::BoardToolbar(QWidget& window, const std::function<void(int button)>& click)
    : QObject(&window), window_(window) {
  for (const ToolbarEntry& entry : entries) {
    if (IsSimpleUI() && !entry.inSimpleUI) continue;
    QAbstractButton* button = NewToolbarButton(window, entry.button);
    buttons_[Slot(entry.button)] = button;
    connect(button, &QAbstractButton::clicked, this,
            [click, number = entry.button] { click(number); });
  }
}

QAbstractButton* BoardToolbar::NewToolbarButton(QWidget& window, int button) {
  if (!IsSimpleUI()) {
    return new StripButton(u"Toolbar1_%1"_s.arg(button), layouts::toolbarButtons, button - 1,
                           &window);
  }
  auto* plain = new QPushButton(&window);
  plain->setObjectName(u"Toolbar1S_%1"_s.arg(button));
  plain->setAutoDefault(true);  // so that Enter presses it too
  return plain;
}

void BoardToolbar::LayOut(QGridLayout& layout) const {
  int place = 0;
  for (QAbstractButton* button : buttons_) {
    if (!button) continue;
    layout.addWidget(button, place / 2, place % 2);
    ++place;
  }
}

void BoardToolbar::Show(const board::Board& board) {
  const board::BoardControls controls = board.Controls();
  const bool coordinates = board.CoordsVisible, mine = controls.viewIsMine;
  const ButtonState states[] = {
      {board::ViewButton, mine ? "&View opponent" : "&View", "View",
       mine ? "View from opponent" : "View from me", controls.viewAndCoordinates},
      {board::CoordinatesButton, coordinates ? "C&oords off" : "C&oords on", "Coords",
       coordinates ? "Hide coordinates" : "Show coordinates", controls.viewAndCoordinates},
      {board::UndoButton, "&Undo", "Undo", "Undo current move", controls.undo},
      {board::SendButton, "&Send", "Send", "Send new move", controls.send},
      {board::ResendButton, "&Resend", "Resend", "Re-send last move", controls.resend},
      // The logic of the board can't surrender yet.
      {board::SurrenderButton, "", "Surrender", "Surrender", false},
      controls.closeReadsClose
          ? ButtonState{board::CloseButton, "&Close", "Close", "Close", true}
          : ButtonState{board::CloseButton, "&Cancel", "Cancel", "Cancel", true},
  };
  for (const ButtonState& state : states) {
    QAbstractButton* button = buttons_[Slot(state.button)];
    if (!button) continue;
    button->setText(QLatin1StringView(IsSimpleUI() ? state.plainCaption : state.caption));
    if (!IsSimpleUI()) button->setAccessibleName(QLatin1StringView(state.meaning));
    button->setEnabled(state.enabled);
  }
}

void BoardToolbar::RefreshBoardButtons() {
  const WindowSkin* skin = WindowSkin::Of(window_);
  if (!skin) return;
  const QImage strip =
      skin->Strip(platform::Process().BoardSetupMode ? "SetupToolbarPics" : "ToolbarPics");
  for (QAbstractButton* button : buttons_) {
    if (button) static_cast<StripButton*>(button)->SetStrip(strip);
  }
}

void BoardToolbar::SetToolTips() {
  for (const ToolbarEntry& entry : entries) {
    if (auto* button = buttons_[Slot(entry.button)]) {
      button->setToolTip(QLatin1StringView(entry.toolTip));
    }
  }
}

}  // namespace ui
