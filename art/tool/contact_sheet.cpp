// SPDX-License-Identifier: GPL-3.0-or-later
// contact_sheet: one picture of all windows in each skin and in the plain look, to look at.
//
//   contact_sheet PROGRAM_FOLDER PICTURE
//
// PROGRAM_FOLDER is a laid out program folder, whose pictures the windows load. QT_SCALE_FACTOR=2
// makes the sheet for a finer screen.
#include <QApplication>
#include <QPainter>

#include <algorithm>
#include <cstdio>

#include "boards/chess_graphics.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "shown_windows.h"
#include "skin/layouts/strips.h"
#include "skin/look.h"
#include "skin/strip_button.h"

namespace {

using namespace Qt::StringLiterals;

constexpr int kGap = 16;
constexpr int kWidth = 1600;

constexpr art::Look looks[] = {
    {"Tarvolenix Classic", "Plain"}, {"Tarvolenix Night", "Slate"}, {"", "Plain"}};

constexpr const char* states[] = {"Up", "Hover", "Down", "Disabled", "Focused"};

void Place(QAbstractButton& button, int state, const QRect& place) {
  if (auto* skinned = qobject_cast<ui::SkinButton*>(&button)) {
    skinned->PlaceAt(place);
  } else {
    button.setGeometry(place);
  }
  button.setText(QLatin1StringView(states[state]));
  button.setAttribute(Qt::WA_UnderMouse, state == 1);
  button.setDown(state == 2);
  button.setEnabled(state != 3);
  if (state == 4) button.setFocus();
}

struct Tools {
  const char* file;
  const ui::layouts::Strip& shape;
};
constexpr Tools tools[] = {{"BoardButtons.bmp", ui::layouts::toolbarButtons},
                           {"BoardSetupButtons.bmp", ui::layouts::toolbarButtons},
                           {"InterfaceButtons.bmp", ui::layouts::interfaceButtons}};

void AddTools(QWidget& window, QPoint corner, const Tools& strip) {
  const QString path = u"%1UI Graphics/%2/%3"_s.arg(
      QString::fromStdString(platform::Process().ProgramFolder),
      QString::fromStdString(platform::Settings().Skin), QLatin1StringView(strip.file));
  const QSize cell(strip.shape.cell.width, strip.shape.cell.height);
  for (int row = 0; row < strip.shape.rows; ++row) {
    for (int state = 0; state < 4; ++state) {
      auto* button = new ui::StripButton(u"Tool"_s, strip.shape, row, &window);
      button->SetStrip(QImage(path));
      const QPoint place(state * (cell.width() + 8), row * (cell.height() + 8));
      Place(*button, state, {corner + place, cell});
    }
  }
}

// How buttons look: the system's, and in a skin those of the strips below it.
std::unique_ptr<QWidget> NewStates() {
  auto window = std::make_unique<QWidget>();
  for (int state = 0; state < int(std::size(states)); ++state) {
    Place(*ui::NewButton(*window, {"OkButton", "OKButtonS"}, {}), state,
          {kGap + state * 104, kGap, 96, 28});
  }
  window->setFixedSize(QSize(552, 60));
  if (ui::IsSimpleUI()) return window;
  QPoint corner(kGap, 60);
  for (const Tools& strip : tools) {
    AddTools(*window, corner, strip);
    corner.rx() += 4 * (strip.shape.cell.width + 8) + kGap;
  }
  window->setFixedSize(corner.x(), 60 + 7 * 56 + 8);
  return window;
}

std::vector<QImage> PicturesOf(const art::Look& look) {
  boards::ChessGraphics graphics;
  if (!art::Wear(look, graphics)) return {};
  std::vector<QImage> pictures;
  for (const art::ShownWindow& window : art::ShownWindows()) {
    pictures.push_back(art::Grabbed(*window.make(graphics)));
  }
  pictures.push_back(art::Grabbed(*NewStates()));
  return pictures;
}

// One look below the other, its windows side by side in as many lines as they take.
QImage Assembled(const std::vector<std::vector<QImage>>& looksOfWindows) {
  struct Placed {
    const QImage* picture;
    QPointF corner;
  };
  std::vector<Placed> placed;
  QPointF corner(kGap, kGap);
  qreal height = 0;
  const auto newLine = [&] {
    corner = {kGap, corner.y() + height + kGap};
    height = 0;
  };
  for (const auto& pictures : looksOfWindows) {
    for (const QImage& picture : pictures) {
      const QSizeF size = picture.deviceIndependentSize();
      if (corner.x() > kGap && corner.x() + size.width() + kGap > kWidth) newLine();
      placed.push_back({&picture, corner});
      corner.rx() += size.width() + kGap;
      height = std::max(height, size.height());
    }
    newLine();
  }
  const qreal ratio = placed.front().picture->devicePixelRatio();
  QImage sheet((QSizeF(kWidth, corner.y()) * ratio).toSize(), QImage::Format_RGB32);
  sheet.setDevicePixelRatio(ratio);
  sheet.fill(QColor(0x76, 0x80, 0x8c));
  QPainter painter(&sheet);
  for (const auto& [picture, place] : placed) painter.drawImage(place, *picture);
  return sheet;
}

}  // namespace

int main(int argc, char* argv[]) {
  QApplication application(argc, argv);
  if (argc != 3) {
    std::fputs("usage: contact_sheet PROGRAM_FOLDER PICTURE\n", stderr);
    return 1;
  }
  const fakes::FakeDesktop desktop;
  platform::Process().ProgramFolder = std::string(argv[1]) + "/";
  art::StoreGames();
  std::vector<std::vector<QImage>> pictures;
  for (const art::Look& look : looks) pictures.push_back(PicturesOf(look));
  const bool complete =
      std::none_of(pictures.begin(), pictures.end(), [](auto& of) { return of.empty(); });
  if (complete && Assembled(pictures).save(QString::fromLocal8Bit(argv[2]))) return 0;
  std::fputs("contact_sheet: a picture is missing or can't be written\n", stderr);
  return 1;
}
