// The Snippet Manager on the screen with a library of 100,000 nodes beside one of 100: the time
// from the dialog's first line to its first picture, and that of a page of rows while one scrolls
// through the open tree. Prints a table and ends with 1 when a limit is missed.

#include <QApplication>
#include <QScrollBar>
#include <QTreeView>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "LargeLibrary.h"
#include "foundation/CErrorHandler.h"
#include "hosts/workspace/Workspace.h"
#include "snippets/OpenLibraries.h"
#include "snippets/frmFragmentBuilder.h"
#include "workbench/forms/Desk.h"

namespace {

using namespace tessel;

constexpr int Small = 100, Large = 100000, Pages = 300, Opens = 5;
constexpr double OpenLimit = 1000, ScrollLimit = 1.5;  // milliseconds; times the small library

/// Milliseconds of the processor, whatever else runs on the machine.
double Spent() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

double Middle(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

struct Times {
  double Open = 0, Expand = 0, Scroll = 0;
};

Times Measure(int nodes) {
  test::Desk desk;
  const test::OpenLibraries libraries;
  const bench::Library library(nodes);
  const auto connection = std::make_shared<cConnectionMDB>();
  connection->NameConnect = u"Marlow";
  connection->mConnectMDB = library.Connection;
  gConnectionMDBs->Add(connection, connection->NameConnect);
  workspace::Workspace workspace(desk.Services);
  std::vector<double> opens, expands, pages;
  for (int turn = 0; turn < Opens; ++turn) {
    const double start = Spent();
    const auto dialog = std::make_shared<frmFragmentBuilder>();
    dialog->VBInstance = workspace.VBE();
    desk.Open(*dialog);
    QWidget& window = desk.Window(*dialog);
    static_cast<void>(window.grab());
    opens.push_back(Spent() - start);
    auto& tree = desk.Find<QTreeView>(*dialog, "fgTree");
    const double closed = Spent();
    desk.Find<QAbstractButton>(*dialog, "btmExpand").click();
    static_cast<void>(window.grab());
    expands.push_back(Spent() - closed);
    QScrollBar& bar = *tree.verticalScrollBar();
    if (dialog->fgTree.Rows() < nodes || bar.maximum() < nodes / 2) {
      std::fprintf(stderr, "The tree isn't in the dialog, or not open.\n");
      std::exit(2);
    }
    for (int page = 0; page < Pages; ++page) {
      const double before = Spent();
      bar.setValue(bar.value() < bar.maximum() ? bar.value() + bar.pageStep() : 0);
      QApplication::processEvents();
      static_cast<void>(tree.viewport()->grab());
      pages.push_back(Spent() - before);
    }
    dialog->Unload();
  }
  return {Middle(opens), Middle(expands), Middle(pages)};
}

bool Report(const char* what, double large, double small, bool good) {
  std::printf("%-40s %8.2f ms   %8.2f ms   %6.2f%s\n", what, large, small, large / small,
              good ? "" : "   MISSED");
  return good;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  gErrorHandler = std::make_shared<CErrorHandler>();
  const Times small = Measure(Small), large = Measure(Large);
  bool good =
      Report("dialog to its first picture", large.Open, small.Open, large.Open <= OpenLimit);
  Report("all opened, to the picture", large.Expand, small.Expand, true);
  good = Report("the next page, to the picture", large.Scroll, small.Scroll,
                large.Scroll <= ScrollLimit * small.Scroll) &&
         good;
  gErrorHandler.reset();
  return good ? 0 : 1;
}
