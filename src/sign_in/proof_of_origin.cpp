// SPDX-License-Identifier: GPL-3.0-or-later
#include "sign_in/proof_of_origin.h"

#include <QByteArray>
#include <QCryptographicHash>
#include <QRandomGenerator>

#include <array>

namespace sign_in {
namespace {

std::string InBase64Url(const QByteArray& bytes) {
  return bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals)
      .toStdString();
}

}  // namespace

std::string RandomText() {
  std::array<quint32, 8> numbers{};
  QRandomGenerator::system()->fillRange(numbers.data(), numbers.size());
  return InBase64Url(QByteArray(reinterpret_cast<const char*>(numbers.data()), sizeof numbers));
}

std::string ChallengeOf(const std::string& verifier) {
  return InBase64Url(
      QCryptographicHash::hash(QByteArray::fromStdString(verifier), QCryptographicHash::Sha256));
}

}  // namespace sign_in
