// A component's file: designer head, attributes, code.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/model/Component.h"
#include "hosts/workspace/Companions.h"

namespace tessel::workspace {

/// How a component is kept in its file. The bytes of parts that nobody changed are written as they
/// were read; changed parts keep the file's code page, byte order mark, line ends and last line
/// end.
class ComponentFile : public model::ComponentStorage {
 public:
  /// Takes the parts of a file apart. Fails with a vb::Failure naming the file and the line.
  ComponentFile(std::filesystem::path path, std::string bytes);
  /// For a new component that will be written to `path`.
  ComponentFile(std::filesystem::path path, const model::VBComponent& component, int codePage);

  /// Native path.
  [[nodiscard]] String FileName() const override;
  /// Writes the component as it is now, and its companions beside it under the new name; its own
  /// file stays as it was, and the component stays there.
  void SaveAs(model::VBComponent& component, StringView fileName) override;
  /// Writes the component to another file, which is its own from now on. Its companions go along;
  /// those of its name bear the new one. Fails, changing nothing, when another component is kept
  /// there.
  void MoveTo(model::VBComponent& component, std::filesystem::path file);
  void Renamed(model::VBComponent& component) override;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  /// Where a new component will be written; companions that it carries follow its name.
  void SetPath(model::VBComponent& component, std::filesystem::path path);
  /// The file as it is stored; empty for one that was never written.
  [[nodiscard]] const std::string& StoredBytes() const;
  /// From now on the component has no file of its own: what was read, companions included, waits
  /// for the user's save.
  void TakeOver();
  /// The companions that wait with it.
  [[nodiscard]] const std::vector<Companion>& Carried() const { return carried_; }
  /// The bytes that the file is known to have on the disk: those that were read or written last, or
  /// those of another program that the user has seen and will overwrite. Nothing: there is no file.
  [[nodiscard]] std::optional<std::string> KnownBytes() const { return seen_.value_or(bytes_); }
  void SetSeen(std::optional<std::string> bytes) { seen_ = std::move(bytes); }
  [[nodiscard]] bool IsNew() const { return isNew_; }
  [[nodiscard]] host::vbext_ComponentType Type() const { return type_; }
  /// The name that the file says, or its own without extension.
  [[nodiscard]] String Name() const;
  [[nodiscard]] bool HasByteOrderMark() const { return bom_ > 0; }
  /// What has no file yet is kept in that page from now on, if it has the characters.
  void SetCodePage(int codePage);
  [[nodiscard]] int CodePage() const { return codePage_; }
  /// Whether the component would be the same in another code page: the bytes of its file, or what
  /// waits for one, and what was changed since.
  [[nodiscard]] bool Suits(const model::VBComponent& component, int codePage) const;
  /// Whether it holds nothing beyond ASCII, or says its code page itself.
  [[nodiscard]] bool IsPlain(const model::VBComponent& component) const;

  /// The designer head; null for a component without one.
  [[nodiscard]] std::shared_ptr<model::DesignerTree> LoadDesigner() const;
  /// The visible lines of the code.
  [[nodiscard]] model::LineBuffer LoadCode();

  [[nodiscard]] bool IsModified(const model::VBComponent& component) const;
  /// The bytes that the component would be written as. Fails naming file, line and character when
  /// the code page can't hold the text.
  [[nodiscard]] std::string Compose(const model::VBComponent& component) const;
  /// `bytes` now stand in the file.
  void Stored(model::VBComponent& component, std::string bytes);

  /// Line of the stored file (from 1) where a visible line of the code stands.
  [[nodiscard]] int FileLine(int codeLine) const;

 private:
  /// Bytes of this file in another page; nothing when that lacks a character.
  [[nodiscard]] std::optional<std::string> InOther(const std::string& bytes, int codePage) const;
  void FindParts();
  void FindHeadEnd();
  [[nodiscard]] std::string_view Part(std::size_t from, std::size_t to) const;
  [[nodiscard]] std::string HeadBytes(const model::VBComponent& component) const;
  [[nodiscard]] std::string Around(const std::string& head,
                                   const model::VBComponent& component) const;
  [[nodiscard]] std::string AttributeBytes() const;
  [[nodiscard]] std::string CodeBytes(const model::VBComponent& component) const;
  [[nodiscard]] std::string EncodeOrFail(StringView text, int firstLine) const;
  void FindHidden() const;
  [[nodiscard]] bool IsBlank() const { return isNew_ && bytes_.empty(); }
  [[nodiscard]] std::vector<Companion> CompanionsNow(std::string_view head) const;
  [[nodiscard]] std::filesystem::path Beside(const std::filesystem::path& file,
                                             const std::string& name) const;
  [[nodiscard]] std::string WriteBeside(model::VBComponent& component,
                                        const std::filesystem::path& file,
                                        Following following) const;
  void RenameCompanion(const model::VBComponent& component, const std::string& name,
                       const std::string& fresh) const;
  [[noreturn]] void Fail(int line, StringView why) const;

  std::filesystem::path path_;
  std::string bytes_;
  std::vector<Companion> carried_;
  std::optional<std::optional<std::string>> seen_;
  std::size_t bom_ = 0, headEnd_ = 0, codeStart_ = 0, codeEnd_ = 0;
  host::vbext_ComponentType type_ = host::vbext_ct_StdModule;
  int codePage_ = 1252;
  bool isNew_ = false;
  String newName_;                  // after a renaming
  String newHead_, newAttributes_;  // of a component without a file
  bool endsLast_ = true;            // whether the code's last line has a line end
  /// For each hidden line of the stored file the visible one ahead of it.
  mutable std::optional<std::vector<int>> hiddenBehind_;
};

}  // namespace tessel::workspace
