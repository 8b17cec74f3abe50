// SPDX-License-Identifier: GPL-3.0-or-later
#include "sounds/qt_sounds.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <QtGlobal>

#include <array>
#include <fstream>
#include <string_view>

namespace sounds {
namespace {

/// Whether the file begins as a wave file does: "RIFF", the size in four bytes, "WAVE".
bool IsWaveFile(const std::string& path) {
  std::array<char, 12> start{};
  std::ifstream file(path, std::ios::binary);
  if (!file.read(start.data(), start.size())) return false;
  const std::string_view text(start.data(), start.size());
  return text.starts_with("RIFF") && text.ends_with("WAVE");
}

QtMessageHandler otherMessages = nullptr;

/// Drops what the toolkit prints for want of a sound server and about damaged files; the latter
/// comes from its event loop, long after Play.
void WithoutComplaints(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  for (const char* source : {"QSoundEffect", "PulseAudio"}) {
    if (text.startsWith(QLatin1StringView(source))) return;
  }
  otherMessages(type, context, text);
}

}  // namespace

QtSounds::QtSounds() { otherMessages = qInstallMessageHandler(WithoutComplaints); }

QtSounds::~QtSounds() { qInstallMessageHandler(otherMessages); }

void QtSounds::Play(const std::string& path) {
  if (!QCoreApplication::instance() || !IsWaveFile(path)) return;
  if (QMediaDevices::defaultAudioOutput().isNull()) return;
  if (!effect_) effect_ = std::make_unique<QSoundEffect>();
  effect_->stop();
  effect_->setSource(QUrl::fromLocalFile(QString::fromStdString(path)));
  effect_->play();
}

}  // namespace sounds
