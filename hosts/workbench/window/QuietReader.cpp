#include "hosts/workbench/window/QuietReader.h"

#include <QElapsedTimer>

#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

constexpr int PauseMs = 60, BusyMs = 6;

}  // namespace

QuietReader::QuietReader(std::shared_ptr<model::Vbe> vbe) : vbe_(std::move(vbe)) {
  timer_.setSingleShot(true);
  timer_.setInterval(PauseMs);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { ReadSome(); });
}

void QuietReader::Begin() {
  if (!timer_.isActive()) timer_.start();
}

std::shared_ptr<model::CodeModule> QuietReader::NextUnread() {
  for (const auto& project : vbe_->Projects().All()) {
    for (const auto& component : project->Components().All()) {
      const auto& module = component->Module();
      if (module && !module->IsLoaded() && failed_.count(module.get()) == 0) return module;
    }
  }
  return nullptr;
}

void QuietReader::ReadSome() {
  QElapsedTimer clock;
  clock.start();
  while (lines_ < MostLines && clock.elapsed() < BusyMs) {
    const auto module = NextUnread();
    if (!module) return;
    try {
      lines_ += module->Buffer().Count();
      (void)module->Index();
    } catch (const std::exception&) {
      failed_.insert(module.get());
    }
  }
  if (lines_ < MostLines) timer_.start();
}

}  // namespace tessel::workbench
