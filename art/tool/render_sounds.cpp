// SPDX-License-Identifier: GPL-3.0-or-later
// render_sounds: makes wave files of the table of sounds.
//
//   render_sounds TABLE FOLDER
//
// The result is 0, or 1 after a line that names what failed.
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "sound_table.h"
#include "synthesiser.h"
#include "wave_file.h"

namespace {

int Failed(const std::string& what) {
  std::fprintf(stderr, "render_sounds: %s\n", what.c_str());
  return 1;
}

}  // namespace

int main(int argc, char* argv[]) {
  if (argc != 3) return Failed("usage: render_sounds TABLE FOLDER");
  const std::string table = argv[1], folder = argv[2];
  std::ifstream in(table);
  if (!in) return Failed("can't read " + table);
  std::string error;
  const auto sounds = art::ReadSoundTable(in, &error);
  if (!sounds) return Failed(table + ", " + error);
  std::error_code ignored;
  std::filesystem::create_directories(folder, ignored);
  for (const art::Sound& sound : *sounds) {
    const std::string path = folder + '/' + sound.file;
    if (!art::SaveWave(art::Synthesise(sound), art::kSampleRate, path)) {
      return Failed("can't write " + path);
    }
  }
  return 0;
}
