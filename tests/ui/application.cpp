// SPDX-License-Identifier: GPL-3.0-or-later
// The application object that every window needs, for as long as the tests run.
#include <QApplication>
#include <gtest/gtest.h>

#include <memory>

namespace {

class ApplicationEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    qputenv("CUPS_SERVER", "/nowhere");  // the machine's own printers are none of the tests'
    static char name[] = "ui_test";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    application_ = std::make_unique<QApplication>(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override { application_.reset(); }

 private:
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const auto* const environment =
    testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

}  // namespace
