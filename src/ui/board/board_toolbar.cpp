// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_toolbar.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QPushButton>

#include <iterator>

#include "platform/process_state.h"
#include "skin/look.h"
#include "skin/strip_button.h"
#include "skin/window_skin.h"
#include "ui/board/why_grey.h"
#include "widgets/tool_tips.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int settlingMilliseconds = 1000;

/// In the order in which they stand.
struct ToolbarEntry {
  int button;
  const char* toolTip;
  const char* setupToolTip;  ///< while a position is set up, where it differs
};
constexpr ToolbarEntry entries[] = {
    {board::ViewButton, "VIEW - Toggle between board views", nullptr},
    {board::CoordinatesButton, "COORDINATES - Display the board coordinates", nullptr},
    {board::UndoButton, "UNDO - Reverse your last move", nullptr},
    {board::SendButton, "SEND - Send the move to your opponent",
     "RESET - Configure the board for a standard chess opening"},
    {board::ResendButton, "RESEND - Send your last move to your opponent again",
     "CLEAR - Remove all the pieces from the board"},
    {board::SurrenderButton, "SURRENDER - Surrender the game",
     "PLAY - Play the current board setup"},
    {board::CloseButton, "CLOSE - Close the form", nullptr},
};

/// Whether the window has the button at all: the plain one surrenders from its menu only.
bool IsThere(int button, bool setup) {
  if (button == board::UndoButton) return !setup;
  return button != board::SurrenderButton || setup || !IsSimpleUI();
}

std::size_t Slot(int button) { return static_cast<std::size_t>(button); }

struct ButtonState {  // NOLINT(clang-analyzer-optin.performance.Padding)
  int button;
  const char* plainCaption;
  const char* caption;
  const char* meaning;  ///< to those who don't see the picture
  bool enabled;
};

}  // namespace

BoardToolbar::BoardToolbar(QWidget& window, const Click& click)
    : QObject(&window), window_(window) {
  for (const ToolbarEntry& entry : entries) {
    QAbstractButton* button = NewToolbarButton(window, entry.button);
    buttons_[Slot(entry.button)] = button;
    connect(button, &QAbstractButton::pressed, this, [this] {
      pressedTooSoon_ = !settled_.hasExpired();
      pressedByMouse_ = QGuiApplication::mouseButtons() != Qt::NoButton;
    });
    connect(button, &QAbstractButton::clicked, this, [this, click, number = entry.button] {
      const bool slipped = number == board::SurrenderButton && pressedTooSoon_;
      if (!slipped) click(number, pressedByMouse_);
    });
  }
  TakeMode(false);
}

QAbstractButton* BoardToolbar::NewToolbarButton(QWidget& window, int button) {
  if (!IsSimpleUI()) {
    return new StripButton(u"Toolbar1_%1"_s.arg(button), layouts::toolbarButtons, button - 1,
                           &window);
  }
  auto* plain = new QPushButton(&window);
  plain->setObjectName(u"Toolbar1S_%1"_s.arg(button));
  plain->setAutoDefault(true);  // so that Enter presses it too
  // Wide enough for its longest caption, also while it has another one.
  if (button == board::ViewButton) plain->setText(u"View opponent"_s);
  if (button == board::CoordinatesButton) plain->setText(u"Coordinates"_s);
  plain->setMinimumWidth(plain->sizeHint().width());
  return plain;
}

void BoardToolbar::LayOut(QGridLayout& layout) {
  layout_ = &layout;
  for (const int column : {0, 1}) layout.setColumnStretch(column, 1);
  TakeMode(setup_);
}

void BoardToolbar::TakeMode(bool setup) {
  setup_ = setup;
  int place = 0;
  for (const ToolbarEntry& entry : entries) {
    QAbstractButton* button = buttons_[Slot(entry.button)];
    button->setVisible(IsThere(entry.button, setup));
    if (!layout_) continue;
    layout_->removeWidget(button);
    if (!IsThere(entry.button, setup)) continue;
    layout_->addWidget(button, place / 2, place % 2);
    ++place;
  }
  RefreshBoardButtons();
}

namespace {

const char* ViewCaption(bool mine) { return mine ? "View from\nopponent" : "View\nfrom me"; }

const char* CoordinatesCaption(bool visible) {
  return visible ? "Hide\ncoordinates" : "Show\ncoordinates";
}

std::array<ButtonState, board::CloseButton> StatesInPlay(const board::Game& board) {
  const board::BoardControls controls = board::Controls(board);
  const bool coordinates = board.CoordsVisible, mine = controls.viewIsMine;
  const char* close = controls.closeReadsClose ? "Close" : "Cancel";
  return {{
      {board::ViewButton, mine ? "&View opponent" : "&View", ViewCaption(mine),
       mine ? "View from opponent" : "View from me", controls.viewAndCoordinates},
      {board::CoordinatesButton, coordinates ? "C&oords off" : "C&oords on",
       CoordinatesCaption(coordinates), coordinates ? "Hide coordinates" : "Show coordinates",
       controls.viewAndCoordinates},
      {board::UndoButton, "&Undo", "Undo", "Undo current move", controls.undo},
      {board::SendButton, "&Send", "Send", "Send new move", controls.send},
      {board::ResendButton, "&Resend", "Resend", "Re-send last move", controls.resend},
      {board::SurrenderButton, "", "Surrender", "Surrender game", controls.surrender},
      {board::CloseButton, controls.closeReadsClose ? "&Close" : "&Cancel", close, close, true},
  }};
}

std::array<ButtonState, board::CloseButton> StatesInSetup(const board::Game& board) {
  const board::BoardControls controls = board::Controls(board);
  return {{
      {board::ViewButton, "&View", ViewCaption(controls.viewIsMine),
       controls.viewIsMine ? "View from opponent" : "View from me", true},
      {board::CoordinatesButton, "C&oordinates", CoordinatesCaption(board.CoordsVisible),
       board.CoordsVisible ? "Hide coordinates" : "Show coordinates", true},
      {board::UndoButton, "", "", "", false},
      {board::ResetSetupButton, "&Reset", "Reset", "Reset board", true},
      {board::ClearSetupButton, "C&lear", "Clear", "Clear board", true},
      {board::PlaySetupButton, "&Play", "Play", "Play current setup", controls.playSetup},
      {board::CloseButton, "&Close", "Close", "Close", true},
  }};
}

}  // namespace

void BoardToolbar::Show(const board::Game& board) {
  const bool setup = platform::Process().BoardSetupMode;
  if (setup != setup_) {
    TakeMode(setup);
    // The second press of a double click on Play would give the game up.
    if (!setup) settled_.setRemainingTime(settlingMilliseconds);
  }
  for (const ButtonState& state : setup ? StatesInSetup(board) : StatesInPlay(board)) {
    QAbstractButton* button = buttons_[Slot(state.button)];
    button->setText(QLatin1StringView(IsSimpleUI() ? state.plainCaption : state.caption));
    if (!IsSimpleUI()) button->setAccessibleName(QLatin1StringView(state.meaning));
    button->setEnabled(state.enabled);
  }
  SetToolTips(board);
}

void BoardToolbar::RefreshBoardButtons() {
  const WindowSkin* skin = WindowSkin::Of(window_);
  if (!skin) return;
  const QImage strip = skin->Strip(setup_ ? "SetupToolbarPics" : "ToolbarPics");
  for (QAbstractButton* button : buttons_) {
    if (button) static_cast<StripButton*>(button)->SetStrip(strip);
  }
}

void BoardToolbar::SetToolTips(const board::Game& board) {
  for (const ToolbarEntry& entry : entries) {
    SetTip(*buttons_[Slot(entry.button)],
           setup_ && entry.setupToolTip ? entry.setupToolTip : entry.toolTip,
           WhyGrey(board, entry.button));
  }
}

}  // namespace ui
