// SPDX-License-Identifier: GPL-3.0-or-later
#include "synthesiser.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace art {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kAttack = 0.002;
constexpr double kFadeOut = 0.015;
constexpr double kPeak = 0.5012;  // -6 dB
// Partials above are left out: nobody hears them, and from half the sample rate they would fold
// back.
constexpr double kHighest = 18000;
// Brings a band of noise about to the loudness of a tone of the same level.
constexpr double kNoiseGain = 3;

using Samples = std::vector<double>;

double Seconds(size_t samples) { return static_cast<double>(samples) / kSampleRate; }

size_t SampleAt(double seconds) { return static_cast<size_t>(std::llround(seconds * kSampleRate)); }

// From 0 to 1 over `length` seconds, without a corner at either end.
double Rise(double time, double length) {
  return time >= length ? 1 : 0.5 - 0.5 * std::cos(kPi * time / length);
}

double Envelope(double time, double decay) { return Rise(time, kAttack) * std::exp(-time / decay); }

void AddStrike(Samples& samples, const Strike& strike) {
  const size_t start = SampleAt(strike.at);
  for (const Partial& partial : strike.timbre) {
    const double hertz = strike.pitch * partial.ratio;
    if (hertz > kHighest) continue;
    for (size_t i = start; i < samples.size(); ++i) {
      const double time = Seconds(i - start);
      samples[i] += strike.level * partial.level * Envelope(time, partial.decay * strike.stretch) *
                    std::sin(2 * kPi * hertz * time);
    }
  }
}

// A resonant band pass of two poles with a peak gain of 1.
class BandPass {
 public:
  BandPass(double centre, double octaves) {
    const double angle = 2 * kPi * centre / kSampleRate;
    const double alpha =
        std::sin(angle) * std::sinh(std::numbers::ln2 / 2 * octaves * angle / std::sin(angle));
    gain_ = alpha / (1 + alpha);
    first_ = -2 * std::cos(angle) / (1 + alpha);
    second_ = (1 - alpha) / (1 + alpha);
  }

  double Pass(double in) {
    const double out = gain_ * (in - in2_) - first_ * out1_ - second_ * out2_;
    in2_ = in1_;
    in1_ = in;
    out2_ = out1_;
    out1_ = out;
    return out;
  }

 private:
  double gain_, first_, second_;
  double in1_ = 0, in2_ = 0, out1_ = 0, out2_ = 0;
};

void AddBrush(Samples& samples, const Brush& brush, std::minstd_rand& random) {
  const size_t start = SampleAt(brush.at);
  constexpr double middle = (std::minstd_rand::max() - std::minstd_rand::min()) / 2.0;
  BandPass band(brush.centre, brush.width);
  for (size_t i = start; i < samples.size(); ++i) {
    // A standard distribution may differ from one library to the next; this doesn't.
    const double noise = static_cast<double>(random() - std::minstd_rand::min()) / middle - 1;
    samples[i] +=
        brush.level * Envelope(Seconds(i - start), brush.decay) * kNoiseGain * band.Pass(noise);
  }
}

void FadeOut(Samples& samples) {
  for (size_t i = 0; i < samples.size(); ++i) {
    samples[i] *= Rise(Seconds(samples.size() - 1 - i), kFadeOut);
  }
}

void BringToPeak(Samples& samples) {
  double peak = 0;
  for (double sample : samples) peak = std::max(peak, std::abs(sample));
  if (peak == 0) return;
  for (double& sample : samples) sample *= kPeak / peak;
}

}  // namespace

std::vector<double> Synthesise(const Sound& sound) {
  Samples samples(SampleAt(sound.seconds));
  std::minstd_rand random(1);
  for (const Strike& strike : sound.strikes) AddStrike(samples, strike);
  for (const Brush& brush : sound.brushes) AddBrush(samples, brush, random);
  FadeOut(samples);
  BringToPeak(samples);
  return samples;
}

}  // namespace art
