// SPDX-License-Identifier: GPL-3.0-or-later
// A user for the real program: it runs in this process, and what is done with it comes by mouse and
// keyboard through the X server.
//
//   demo_player anna|bob|plain PROGRAM_FOLDER PICTURE_FOLDER
//   demo_player compare WINNERS_PROGRAM_FOLDER LOSERS_PROGRAM_FOLDER
#include <QApplication>
#include <QMoveEvent>
#include <QAbstractNativeEventFilter>
#include <QWindow>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string>

#include "app/program.h"
#include "demo/roles.h"
#include "demo/stores.h"

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 55s;

struct Role {
  const char* name;
  std::vector<demo::Step> (*part)(const demo::Steps& steps);
};

const std::map<std::string, Role> roles{{"anna", {"Anna", demo::AnnasPart}},
                                        {"bob", {"Bob", demo::BobsPart}},
                                        {"plain", {"Carl", demo::PlainPart}}};

int Perform(const Role& role, const std::string& folder, const std::string& pictures) {
  app::Program program(folder + "/", "-nosound");
  demo::Hands hands;
  const demo::Steps steps(program, hands, QString::fromStdString(pictures));
  const demo::Performance performance(role.name, role.part(steps),
                                      [&hands] { return hands.AreBusy(); });
  QTimer watchdog;
  QObject::connect(&watchdog, &QTimer::timeout, [&] {
    performance.TellWhereItStopped();
    steps.SavePicture(QStringLiteral("failed-") + QLatin1StringView(role.name));
    std::_Exit(EXIT_FAILURE);  // whatever dialog waits
  });
  watchdog.start(patience);
  if (!program.Start()) return EXIT_FAILURE;
  QApplication::exec();
  program.Stop();
  if (performance.IsOver()) return EXIT_SUCCESS;
  performance.TellWhereItStopped();
  return EXIT_FAILURE;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "demo_player anna|bob|plain|compare FOLDER FOLDER\n";
    return EXIT_FAILURE;
  }
  const std::string what = argv[1];
  if (what == "compare") return demo::EndEqual(argv[2], argv[3]) ? EXIT_SUCCESS : EXIT_FAILURE;
  QApplication application(argc, argv);
  struct F : QAbstractNativeEventFilter { bool nativeEventFilter(const QByteArray&, void* m, qintptr*) override {
    auto* e=static_cast<xcb_generic_event_t*>(m); int t=e->response_type&0x7f;
    if(t==XCB_CONFIGURE_NOTIFY){auto*c=reinterpret_cast<xcb_configure_notify_event_t*>(e); std::printf("EV conf%s %x %d,%d %dx%d\n", e->response_type&0x80?"*":"", c->window,c->x,c->y,c->width,c->height);}
    else if(t==XCB_REPARENT_NOTIFY){auto*c=reinterpret_cast<xcb_reparent_notify_event_t*>(e); std::printf("EV repar %x to %x %d,%d\n", c->window,c->parent,c->x,c->y);}
    else if(t==XCB_MAP_NOTIFY){auto*c=reinterpret_cast<xcb_map_notify_event_t*>(e); std::printf("EV map %x\n", c->window);}
    else if(t==XCB_UNMAP_NOTIFY){auto*c=reinterpret_cast<xcb_unmap_notify_event_t*>(e); std::printf("EV unmap %x\n", c->window);}
    return false;} } filter;
  struct G : QObject { bool eventFilter(QObject*o,QEvent*e) override { if(e->type()==QEvent::Move||e->type()==QEvent::Show||e->type()==QEvent::Expose){ if(auto*w=qobject_cast<QWindow*>(o)) std::printf("QW %s ev %d geo %d,%d pos %d,%d\n", o->objectName().toStdString().c_str(), int(e->type()), w->geometry().x(), w->geometry().y(), e->type()==QEvent::Move?static_cast<QMoveEvent*>(e)->pos().x():-1,0); else if(auto*x=qobject_cast<QWidget*>(o); x&&x->isWindow()) std::printf("WI %s ev %d geo %d,%d\n", o->objectName().toStdString().c_str(), int(e->type()), x->geometry().x(), x->geometry().y()); } return false; } } g;
  application.installNativeEventFilter(&filter); application.installEventFilter(&g);
  return Perform(roles.at(what), argv[2], argv[3]);
}
