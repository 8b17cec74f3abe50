// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin_folder.h"

#include <algorithm>
#include <atomic>
#include <functional>
#include <iterator>
#include <mutex>
#include <thread>
#include <vector>

#include "saved_picture.h"
#include "skin/layouts/all_windows.h"
#include "skin/layouts/skin_table.h"
#include "skin_background.h"
#include "skin_chart.h"
#include "skin_strip.h"

namespace art {

using namespace Qt::StringLiterals;

namespace {

using ui::layouts::Strip;

// Texts that are headings, and those that lead somewhere; all others are plain.
constexpr std::string_view kTitles[] = {
    "AboutBox.lblTitle",   "Board.PlayersTag",     "Dialog.Title",
    "ExchangePawn.Label1", "MsgForm.FormCaption",  "NewGameInfo.Label3",
    "NotifyForm.Label3",   "SelectPrinter.Label3", "StatusWindow.StatusText"};
constexpr std::string_view kLinks[] = {"AboutBox.Email", "AboutBox.Web1", "AboutBox.Web2"};

/// Writes one file; false with a reason on failure.
using Job = std::function<bool(QString* error)>;

QString Named(std::string_view name) {
  return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

bool Holds(std::span<const std::string_view> names, const QString& name) {
  return std::any_of(names.begin(), names.end(),
                     [&](std::string_view held) { return Named(held) == name; });
}

class SkinJobs {
 public:
  SkinJobs(const SkinParameters& skin, QString glyphFolder, QString folder)
      : skin_(skin), glyphFolder_(std::move(glyphFolder)), folder_(std::move(folder)) {}

  std::vector<Job> All() {
    for (const ui::layouts::Layout& layout : ui::layouts::allWindows) {
      const ui::SkinRow& row = *ui::FindSkinRow(layout.window);
      AddBackground(row, layout);
      if (!row.borrows) AddCharts(row);
    }
    AddStrips();
    return std::move(jobs_);
  }

 private:
  QString PathOf(std::string_view file) const { return folder_ + u'/' + Named(file); }

  void AddBackground(const ui::SkinRow& row, const ui::layouts::Layout& layout) {
    jobs_.push_back([this, &layout, path = PathOf(row.background)](QString* error) {
      return SavePicture(PaintBackground(skin_, layout), path, error, skin_.quality);
    });
  }

  void AddStrips() {
    jobs_.push_back([this, path = PathOf("SystemButtons.bmp")](QString* error) {
      return SavePicture(PaintSystemButtons(skin_), path, error);
    });
    AddStrip(
        "BoardButtons.bmp", ui::layouts::toolbarButtons,
        {u"view"_s, u"coords"_s, u"undo"_s, u"send"_s, u"resend"_s, u"surrender"_s, u"close"_s});
    AddStrip("BoardSetupButtons.bmp", ui::layouts::toolbarButtons,
             {u"view"_s, u"coords"_s, u""_s, u"reset"_s, u"clear"_s, u"play"_s, u"close"_s});
    AddStrip("InterfaceButtons.bmp", ui::layouts::interfaceButtons,
             {u"play"_s, u"new-game"_s, u"new-setup"_s, u"new-computer"_s});
  }

  void AddStrip(std::string_view file, const Strip& strip, const QStringList& glyphs) {
    jobs_.push_back([this, strip, glyphs, path = PathOf(file)](QString* error) {
      const QImage picture = PaintToolStrip(skin_, strip, glyphFolder_, glyphs, error);
      return !picture.isNull() && SavePicture(picture, path, error);
    });
  }

  void AddCharts(const ui::SkinRow& row) {
    const SkinGridColours& grid = skin_.grid;
    const QString window = Named(row.window) + u'.';
    AddChart(row.textChart, row.textControls, [this, window](const QString& control) {
      return std::vector{Holds(kTitles, window + control)  ? skin_.text.title
                         : Holds(kLinks, window + control) ? skin_.text.link
                                                           : skin_.text.text};
    });
    AddChart(row.fieldChart, row.fieldControls, [this](const QString& control) {
      return control == u"Page"_s   ? std::vector{skin_.paper.back, skin_.paper.fore}
             : control == u"Link"_s ? std::vector{skin_.paper.back, skin_.paper.link}
                                    : std::vector{skin_.field.back, skin_.field.fore};
    });
    const auto always = [](std::vector<QColor> colours) {
      return [colours = std::move(colours)](const QString&) { return colours; };
    };
    AddChart(row.gridChart, row.gridControls,
             always({grid.backFixed, grid.foreFixed, grid.back, grid.fore, grid.backSelected,
                     grid.foreSelected}));
    AddChart(row.tabChart, row.tabPages, always({skin_.page}));
  }

  template <typename ColoursOf>
  void AddChart(std::string_view file, std::string_view controls, ColoursOf coloursOf) {
    if (file.empty()) return;
    std::vector<ChartRow> rows;
    for (const QString& control : Named(controls).split(u';')) {
      rows.push_back({control, coloursOf(control)});
    }
    jobs_.push_back([rows = std::move(rows), path = PathOf(file)](QString* error) {
      return SavePicture(PaintChart(rows), path, error);
    });
  }

  const SkinParameters& skin_;
  QString glyphFolder_, folder_;
  std::vector<Job> jobs_;
};

// Each core takes the next job; after a failure none is begun.
bool RunAll(const std::vector<Job>& jobs, QString* error) {
  std::atomic<size_t> next = 0;
  std::mutex mutex;
  QString firstFault;
  const auto work = [&] {
    for (size_t i = next++; i < jobs.size(); i = next++) {
      QString fault;
      if (jobs[i](&fault)) continue;
      const std::scoped_lock lock(mutex);
      if (firstFault.isEmpty()) firstFault = fault;
      next = jobs.size();
    }
  };
  std::vector<std::thread> threads;
  for (unsigned i = 1; i < std::thread::hardware_concurrency(); ++i) threads.emplace_back(work);
  work();
  for (std::thread& thread : threads) thread.join();
  if (firstFault.isEmpty()) return true;
  *error = firstFault;
  return false;
}

}  // namespace

bool RenderSkin(const SkinParameters& skin, const QString& glyphFolder, const QString& outputFolder,
                QString* error) {
  SkinJobs jobs(skin, glyphFolder, outputFolder + u'/' + skin.folder);
  return RunAll(jobs.All(), error);
}

}  // namespace art
