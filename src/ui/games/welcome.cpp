// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/welcome.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include <cstdlib>
#include <utility>

#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "skin/look.h"
#include "skin/program_pictures.h"
#include "ui/games/way_button.h"
#include "ui/help/help_key.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize bannerSize(560, 168);

/// The style draws such a button as bare text until it is pointed at.
constexpr const char* cardStyle =
    "QCommandLinkButton { background: palette(base); border: 1px solid palette(mid); "
    "border-radius: 6px; }"
    "QCommandLinkButton:hover { background: palette(alternate-base); }"
    "QCommandLinkButton:focus { border: 2px solid palette(highlight); }";

/// The same light and shade in another hue.
QImage InHueOf(const QColor& ground, QImage picture) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QColor own = picture.pixelColor(x, y);
      picture.setPixelColor(
          x, y, QColor::fromHsl(ground.hslHue(), ground.hslSaturation(), own.lightness()));
    }
  }
  return picture;
}

constexpr int roomForTitle = 40;  ///< of what the desktop puts round a window

/// The middle of the start picture, without the line round it. It is wooden, and takes the hue of a
/// skin that is not.
class Banner : public QWidget {
 public:
  Banner() : picture_(QPixmap::fromImage(StartPicture(platform::Process().ProgramFolder, 24, 2))) {
    setFixedHeight(bannerSize.height());
    setMinimumWidth(bannerSize.width());
    setAccessibleName(u"Tarvolenix. Chess by e-mail"_s);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const int margin = picture_.width() / 36;
    const int from = picture_.width() - 2 * margin;
    painter.drawPixmap(rect(), shown_,
                       {margin, picture_.height() / 11, from, from * height() / width()});
  }

  void changeEvent(QEvent* event) override {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) FollowSkin();
  }

 private:
  void FollowSkin() {
    constexpr int wood = 25, near = 60;  // degrees
    const QColor ground = palette().color(QPalette::Window);
    const bool fits = IsSimpleUI() || std::abs(ground.hslHue() - wood) < near;
    shown_ = fits ? picture_ : QPixmap::fromImage(InHueOf(ground, picture_.toImage()));
    update();
  }

  QPixmap picture_;
  QPixmap shown_ = picture_;
};

QIcon PieceIcon(const char* piece) {
  return QIcon(AsItIs(platform::Process().ProgramFolder) + u"Graphics/"_s +
               AsItIs(platform::Settings().ChessSet) + u'/' + QLatin1StringView(piece) + u".ico"_s);
}

QLabel* NewGreeting() {
  auto* greeting = new QLabel(u"Welcome! How would you like to play your first game?"_s);
  greeting->setWordWrap(true);
  QFont font = greeting->font();
  font.setPointSizeF(font.pointSizeF() * 1.15);
  greeting->setFont(font);
  return greeting;
}

QCheckBox* NewVerboseBox() {
  auto* box = new QCheckBox(u"E&xplain to me why a move is refused"_s);
  box->setObjectName(u"Verbose"_s);
  box->setMinimumHeight(28);
  box->setChecked(platform::Settings().Verbose);
  box->setToolTip(u"Else a refused move only makes a sound. The options can change it later."_s);
  QObject::connect(box, &QCheckBox::toggled,
                   [](bool checked) { platform::Settings().Verbose = checked; });
  return box;
}

}  // namespace

Welcome::Welcome(WaysToAGame ways, QWidget* parent) : QDialog(parent), ways_(std::move(ways)) {
  setObjectName(u"Welcome"_s);
  setWindowTitle(u"Welcome to Tarvolenix"_s);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  auto* banner = new Banner;
  layout->addWidget(banner);
  layout->addWidget(NewPage());
  // Else Enter on the check box would take the first way.
  findChild<QPushButton*>(u"Later"_s)->setDefault(true);
  findChild<QWidget*>(u"AgainstTheComputer"_s)->setFocus();
  TakeDialogLook(*this);
  GiveHelpKey(*this, platform::HelpContents);
  // On a low screen, or with large letters, the ways matter more.
  banner->setVisible(sizeHint().height() + roomForTitle <= screen()->availableGeometry().height());
}

QWidget* Welcome::NewPage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(8);
  column->addWidget(NewGreeting());
  column->addSpacing(4);
  column->addWidget(NewWay("AgainstTheComputer", "Against the &computer",
                           "It is always there, and plays as you tell it to.",
                           PieceIcon(IsSimpleUI() ? "BlackKnight" : "WhiteKnight"),
                           ways_.againstTheComputer));
  column->addWidget(NewWay("OnThisMachine", "With someone on this &machine",
                           "Or on your network: a shared folder is your post office. No server, "
                           "and no password.",
                           PieceIcon("WhiteKing"), ways_.onThisMachine));
  column->addWidget(NewWay("ByMail", "With anybody, by &e-mail",
                           "With your own mail address. The moves travel as ordinary mails.",
                           ProgramPicture(u"tarvolenix.png"_s), ways_.byMail));
  auto* later = new QPushButton(u"&Later"_s);
  later->setObjectName(u"Later"_s);
  later->setMinimumSize(96, 28);
  connect(later, &QPushButton::clicked, this, &QDialog::reject);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(NewVerboseBox());
  bottom->addStretch();
  bottom->addWidget(later);
  column->addSpacing(8);
  column->addLayout(bottom);
  return page;
}

QWidget* Welcome::NewWay(const char* name, const char* title, const char* text,
                         const QIcon& picture, std::function<void()> way) {
  auto* button = new WayButton(QLatin1StringView(title), QLatin1StringView(text), picture);
  button->setStyleSheet(QLatin1StringView(cardStyle));
  button->setObjectName(QLatin1StringView(name));
  button->setAccessibleDescription(QLatin1StringView(text));
  connect(button, &QAbstractButton::clicked, this, [this, way = std::move(way)] {
    accept();
    QTimer::singleShot(0, QApplication::instance(), way);
  });
  return button;
}

}  // namespace ui
