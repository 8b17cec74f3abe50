// SPDX-License-Identifier: GPL-3.0-or-later
// The wave files as a player reads them.
#include <QByteArray>
#include <QFile>
#include <QtEndian>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace art_test {

namespace {

constexpr qsizetype kHeaderBytes = 44;
constexpr int kRate = 44100;

struct SoundCase {
  const char* file;
  double shortest, longest;  // seconds
};

const SoundCase soundCases[] = {
    {"Cs001.tvs", 1.0, 2.0},  {"Cs002.tvs", 0.3, 0.8},     {"Cs003.tvs", 0.05, 0.3},
    {"Cs004.tvs", 0.05, 0.3}, {"Cs005.tvs", 0.2, 0.8},     {"Cs006.tvs", 0.3, 0.8},
    {"Cs007.tvs", 1.0, 2.0},  {"Desk bell.wav", 0.3, 0.8}, {"Knock at the door.wav", 0.3, 0.8},
};

template <typename Number>
Number NumberAt(const QByteArray& file, qsizetype place) {
  return qFromLittleEndian<Number>(file.constData() + place);
}

std::vector<int> SamplesOf(const QByteArray& file) {
  std::vector<int> samples;
  for (qsizetype at = kHeaderBytes; at + 1 < file.size(); at += 2) {
    samples.push_back(NumberAt<qint16>(file, at));
  }
  return samples;
}

int LoudestOf(const std::vector<int>& samples, size_t from, size_t count) {
  int loudest = 0;
  for (size_t i = from; i < from + count; ++i) loudest = std::max(loudest, std::abs(samples[i]));
  return loudest;
}

}  // namespace

TEST(Sounds, AreWaveFilesOfTheRightLengthAndLevelWithoutClicks) {
  for (const SoundCase& sound : soundCases) {
    SCOPED_TRACE(sound.file);
    QFile opened(QStringLiteral(ART_OUTPUT "/Data/") + QLatin1StringView(sound.file));
    ASSERT_TRUE(opened.open(QIODevice::ReadOnly));
    const QByteArray file = opened.readAll();
    ASSERT_GT(file.size(), kHeaderBytes);
    EXPECT_EQ(file.left(4) + file.mid(8, 8) + file.mid(36, 4), "RIFFWAVEfmt data");
    EXPECT_EQ(NumberAt<quint32>(file, 4), file.size() - 8);
    EXPECT_EQ(NumberAt<quint16>(file, 22), 1) << "channels";
    EXPECT_EQ(NumberAt<quint32>(file, 24), quint32{kRate});
    EXPECT_EQ(NumberAt<quint16>(file, 34), 16) << "bits";
    EXPECT_EQ(NumberAt<quint32>(file, 40), file.size() - kHeaderBytes);

    const std::vector<int> samples = SamplesOf(file);
    const double seconds = static_cast<double>(samples.size()) / kRate;
    EXPECT_GE(seconds, sound.shortest);
    EXPECT_LE(seconds, sound.longest);
    const double peak = LoudestOf(samples, 0, samples.size()) / 32767.0;
    EXPECT_NEAR(20 * std::log10(peak), -6, 0.1);
    EXPECT_LT(LoudestOf(samples, 0, 4), 100);
    EXPECT_LT(LoudestOf(samples, samples.size() - 40, 40), 100);
  }
}

}  // namespace art_test
