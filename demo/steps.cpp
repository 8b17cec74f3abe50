// SPDX-License-Identifier: GPL-3.0-or-later
#include "demo/steps.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScreen>
#include <QWindow>
#include <QtGui/qguiapplication_platform.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <utility>

#include "ui/board/board_window.h"

namespace demo {

using namespace Qt::StringLiterals;

namespace {

const QString lastTurnFile = u"hands.last"_s;

QByteArray Me() { return QByteArray::number(QCoreApplication::applicationPid()); }

QWidget* Window(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool isMeant = window->objectName() == QLatin1StringView(name) && window->isVisible();
    if (isMeant && window->windowHandle() && window->windowHandle()->isExposed()) return window;
  }
  return nullptr;
}

/// `control` may be empty for the window itself.
QWidget* Found(const char* window, const char* control) {
  QWidget* found = Window(window);
  if (found && *control) found = found->findChild<QWidget*>(QLatin1StringView(control));
  return found && found->isVisible() ? found : nullptr;
}

/// Asks the server where the window is. The toolkit asks only when it is told of a change, and at
/// that moment the window manager may not have finished framing the window yet.
std::optional<QPoint> OnScreen(const QWidget& widget, QPoint point) {
  const QWidget* window = widget.window();
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  const auto id = static_cast<xcb_window_t>(window->internalWinId());
  if (!x11 || id == 0) return std::nullopt;
  xcb_connection_t* server = x11->connection();
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  const std::unique_ptr<xcb_translate_coordinates_reply_t, decltype(&std::free)> origin(
      xcb_translate_coordinates_reply(server, xcb_translate_coordinates(server, id, root, 0, 0),
                                      nullptr),
      &std::free);
  if (!origin) return std::nullopt;
  return QPoint(origin->dst_x, origin->dst_y) + widget.mapTo(window, point);
}

std::optional<QPoint> Middle(const QWidget* widget) {
  if (!widget || !widget->isEnabled()) return std::nullopt;
  return OnScreen(*widget, widget->rect().center());
}

QString TextOf(const QWidget* field) {
  if (const auto* line = qobject_cast<const QLineEdit*>(field)) return line->text();
  if (const auto* box = qobject_cast<const QPlainTextEdit*>(field)) return box->toPlainText();
  return {};
}

/// Moves on the board, sent or not; -1 without a board.
int MovesOf(app::Program& program) {
  const ui::BoardWindow* board = program.Windows().OpenedBoard();
  return board ? board->Logic().Moves.Count() : -1;
}

}  // namespace

Steps::Steps(app::Program& program, Hands& hands, const QString& folder)
    : program_(program),
      hands_(hands),
      folder_(folder + u'/'),
      lock_(std::make_unique<QLockFile>(folder_ + u"hands.lock"_s)) {
  lock_->setStaleLockTime(0);
}

Steps::~Steps() { EndTurn(); }

Spot Steps::Control(const char* window, const char* control) const {
  return [=] { return Middle(Found(window, control)); };
}

Spot Steps::Entry(const char* menu, const char* entry) const {
  return [=]() -> std::optional<QPoint> {
    const auto* shown = qobject_cast<const QMenu*>(Window(menu));
    if (!shown) return std::nullopt;
    std::optional<QPoint> found;
    for (QAction* action : shown->actions()) {
      const QString name = action->menu() ? action->menu()->objectName() : action->objectName();
      const bool isMeant =
          name == QLatin1StringView(entry) || action->text() == QLatin1StringView(entry);
      if (!isMeant || !action->isEnabled()) continue;
      found = OnScreen(*shown, shown->actionGeometry(action).center());
    }
    return found;
  };
}

Spot Steps::Square(int number) const {
  return [this, number]() -> std::optional<QPoint> {
    const ui::BoardWindow* board = program_.Windows().OpenedBoard();
    if (!board || !Window("Board")) return std::nullopt;
    const ui::BoardPicture& picture = board->Picture();
    return OnScreen(picture, picture.RectOf(rules::FromNumber(number)).center().toPoint());
  };
}

Spot Steps::TrayIcon() const {
  return [this]() -> std::optional<QPoint> {
    const ui::TrayIcon& icon = program_.Tray().Icon();
    const QRect place = icon.Geometry();
    if (!icon.IsShown() || place.isEmpty()) return std::nullopt;
    return place.center();
  };
}

std::function<bool()> Steps::IsUp(const char* window) const {
  return [=] { return Window(window) != nullptr; };
}

std::function<bool()> Steps::IsGone(const char* window) const {
  return [=] { return Window(window) == nullptr; };
}

std::function<bool()> Steps::TipSays(const char* part) const {
  return [this, part] { return program_.Tray().Icon().Tip().contains(QLatin1StringView(part)); };
}

std::function<bool()> Steps::BoardSays(const char* part) const {
  return [part] {
    const QWidget* board = Window("Board");
    return board && board->windowTitle().contains(QLatin1StringView(part));
  };
}

std::function<bool()> Steps::BoardHasMoves(int count) const {
  return [=, this] { return MovesOf(program_) == count; };
}

Step Steps::Click(std::string told, Spot where, std::function<bool()> worked) const {
  return {std::move(told), std::move(where), [this](QPoint at) { hands_.Click(at); },
          std::move(worked)};
}

Step Steps::RightClick(std::string told, Spot where, std::function<bool()> worked) const {
  return {std::move(told), std::move(where), [this](QPoint at) { hands_.RightClick(at); },
          std::move(worked)};
}

Step Steps::PointAt(std::string told, Spot where, std::function<bool()> worked) const {
  return {std::move(told), std::move(where), [this](QPoint at) { hands_.PointAt(at); },
          std::move(worked)};
}

Step Steps::Type(std::string told, const char* window, const char* field, const char* text) const {
  const QString typed = QString::fromUtf8(text);
  return {std::move(told), Control(window, field),
          [this, typed](QPoint at) { hands_.Type(at, typed); },
          [=] { return TextOf(Found(window, field)) == typed; }};
}

Step Steps::WaitFor(std::string told, std::function<bool()> condition) const {
  return {std::move(told), {}, {}, std::move(condition)};
}

Step Steps::DragPiece(std::string told, int from, int to) const {
  const auto before = std::make_shared<int>();
  return {std::move(told), Square(from),
          [=, this](QPoint at) {
            *before = MovesOf(program_);
            hands_.Drag(at, Square(to)().value_or(at));
          },
          [=, this] { return MovesOf(program_) > *before; }};
}

std::vector<Step> Steps::ClickSquares(std::string told, int from, int to) const {
  const auto before = std::make_shared<int>();
  const auto moved = [=, this] { return MovesOf(program_) > *before; };
  Step first = Click(std::move(told), Square(from));
  first.act = [=, this](QPoint at) {
    *before = MovesOf(program_);
    hands_.Click(at);
  };
  return {first, Click({}, Square(to), moved)};
}

Step Steps::Picture(const char* file, const char* window) const {
  return {"  (picture " + std::string(file) + ".png)",
          Control(window, ""),
          [this, file](QPoint) { SavePicture(QLatin1StringView(file)); },
          {}};
}

Step Steps::TakeHands() const {
  return {{}, {}, {}, [this] { return TakeTurn(); }};
}

Step Steps::LetHandsGo() const {
  return {{}, {}, [this](QPoint) { EndTurn(); }, {}};
}

bool Steps::TakeTurn() const {
  if (!lock_->tryLock(0)) return false;
  QFile lastTurn(folder_ + lastTurnFile);
  if (!lastTurn.open(QFile::ReadOnly) || lastTurn.readAll() != Me()) return true;
  lock_->unlock();
  return false;
}

void Steps::EndTurn() const {
  if (!lock_->isLocked()) return;
  QFile lastTurn(folder_ + lastTurnFile);
  if (lastTurn.open(QFile::WriteOnly)) lastTurn.write(Me());
  lastTurn.close();
  lock_->unlock();
}

void Steps::SavePicture(const QString& file) const {
  QApplication::primaryScreen()->grabWindow(0).save(folder_ + file + u".png"_s);
}

}  // namespace demo
