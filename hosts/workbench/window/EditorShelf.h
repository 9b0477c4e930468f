// Editors of modules that show in no window.
#pragma once

#include <functional>
#include <map>
#include <memory>

#include "hosts/workbench/window/CodeEditor.h"

namespace tessel::workbench {

/// A tool changes modules that nobody has open as well. Their texts are put into editors aside, so
/// that the window which shows one of them later can take the tool's edits back. No more than
/// `MostKept` are held: an editor takes some hundred kilobytes.
class EditorShelf {
 public:
  static constexpr std::size_t MostKept = 256;

  EditorShelf();
  ~EditorShelf();
  EditorShelf(const EditorShelf&) = delete;
  EditorShelf& operator=(const EditorShelf&) = delete;

  /// Null when the module has none here.
  [[nodiscard]] CodeEditor* Find(const model::CodeModule& module) const;
  void ForEach(const std::function<void(CodeEditor&)>& visit) const;
  /// Makes an editor with the module's present text; no effect when the shelf is full.
  void Put(const std::shared_ptr<model::CodeModule>& module, const EditorOptions& options);
  /// Hands an editor over to a window; null when there is none.
  [[nodiscard]] CodeEditor* Take(const model::CodeModule& module);
  /// Drops the editors of modules whose project was closed, or that were taken out of it.
  void DropGone();

 private:
  std::unique_ptr<QWidget> room_;
  std::map<const model::CodeModule*, CodeEditor*> editors_;
};

}  // namespace tessel::workbench
