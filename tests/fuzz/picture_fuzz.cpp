// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of skins that others have made: what isn't refused can be shown, and is read for its
// colours no further than it reaches.
#include "desktop/picture_file.h"
#include "fakes/temporary_folder.h"
#include "fuzz/fuzz.h"
#include "skin/colour_chart.h"

void TryInput(std::string_view input) {
  static const TemporaryFolder folder;
  WriteFile(folder / "picture", std::string(input));
  try {
    const QImage picture = desktop::ReadPicture(folder / "picture");
    Require(picture.width() > 0 && picture.height() > 0);
    for (int row = 1;; ++row) {
      for (const int column : {1, 2, 6}) Require(ui::SkinColour(picture, column, row).isValid());
    }
  } catch (const desktop::PictureError&) {
    // refused
  } catch (const std::out_of_range&) {
    // the chart's end
  }
}
