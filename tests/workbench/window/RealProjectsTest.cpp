// Every component of the projects below $TESSEL_PROJECTS in windows: code and designer open, show
// what the model holds, and nothing counts as changed.
#include <gtest/gtest.h>

#include "hosts/workbench/designer/DesignerView.h"
#include "support/ProjectsFolder.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

namespace fs = std::filesystem;

class RealProjects : public InWindow {
 protected:
  void Show(const std::shared_ptr<model::VBComponent>& component) {
    if (component->Module()) {
      const CodeWindow& code = *window_->ShowCode(component);
      EXPECT_EQ(code.Editor().lines(), std::max(1, component->Module()->Buffer().Count()));
    }
    if (component->OwnDesigner() && component->OwnDesigner()->Tree().Root() != nullptr) {
      EXPECT_FALSE(window_->ShowDesigner(component)->grab().isNull());
    }
    QApplication::processEvents();
  }
};

TEST_F(RealProjects, ShowEveryComponentAndChangeNothing) {
  const char* const root = test::ProjectsFolder();
  if (root == nullptr) GTEST_SKIP() << "TESSEL_PROJECTS names no folder";
  QTimer answer;  // components that are left out are told of
  answer.setInterval(10);
  QObject::connect(&answer, &QTimer::timeout, [] {
    if (QMessageBox* const box = OpenBox()) box->button(QMessageBox::Ok)->click();
  });
  answer.start();
  int shown = 0;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    if (entry.path().extension() != ".vbp") continue;
    SCOPED_TRACE(entry.path());
    ASSERT_TRUE(window_->OpenFile(QString::fromStdU16String(entry.path().u16string())));
    for (const auto& component : std::vector(window_->Root()->Active()->Components().All())) {
      Show(component);
      ++shown;
    }
    EXPECT_TRUE(window_->Environment().ChangedFiles().empty());
    ASSERT_TRUE(window_->CloseProjects());
  }
  EXPECT_GT(shown, 0);
}

}  // namespace
}  // namespace tessel::workbench
