// What the names of a project mean, seen from a line of one of its modules.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>

#include "hosts/editing/Declarations.h"
#include "hosts/model/Component.h"

namespace tessel::editing {

/// A declaration and the component that it stands in.
struct Definition {
  std::shared_ptr<model::VBComponent> Where;
  Declared What;
};

/// Which modules are looked into besides the own one.
enum class Reach : std::uint8_t {
  Loaded,  ///< those whose files were read already
  All,     ///< all, so that files may have to be read
};

/// Finds declarations: those of the procedure, of the module, and what other modules of the project
/// show. Keeps what it read of a module until the module changes.
class Names {
 public:
  /// A name at a line of a module. With `member`, one that stands behind a dot.
  [[nodiscard]] std::optional<Definition> Find(const model::VBComponent& component, int line,
                                               StringView name, bool member,
                                               Reach reach = Reach::All);
  /// The declaration of the name at a place; a name behind "Module1." or "Me." is looked for in
  /// that component. Columns count from 1.
  [[nodiscard]] std::optional<Definition> At(const model::VBComponent& component, int line,
                                             int column);
  /// The name at a place as it stands, without its type character; empty for none.
  [[nodiscard]] static String NameAt(model::CodeModule& module, int line, int column);

 private:
  /// From where a name is looked for.
  struct Sight {
    StringView Name;
    bool Member, Own;
  };
  /// What a module declares ahead of its procedures.
  struct Head {
    std::weak_ptr<model::CodeModule> Module;
    long Revision = -1;
    String Text;
    std::unordered_multimap<String, Declared> ByName;
  };
  /// What a procedure declares.
  struct Inside {
    std::weak_ptr<model::CodeModule> Module;
    long Revision = -1;
    int Start = 0;
    std::vector<Declared> All;
  };

  const Head& HeadOf(const std::shared_ptr<model::CodeModule>& module);
  const std::vector<Declared>& InsideOf(const std::shared_ptr<model::CodeModule>& module, int line);
  std::optional<Declared> InHead(const model::VBComponent& component, const Sight& sight);
  static std::optional<Declared> AmongProcedures(const model::VBComponent& component,
                                                 const Sight& sight);
  std::optional<Declared> InComponent(const model::VBComponent& component, const Sight& sight);
  std::optional<Definition> Behind(const model::VBComponent& component, StringView qualifier,
                                   StringView name);

  std::unordered_map<const model::CodeModule*, Head> heads_;
  Inside inside_;
};

/// The lines that a statement or comment runs over ahead of a line, the first one first.
[[nodiscard]] std::vector<StringView> LinesAhead(const model::LineBuffer& lines, int line);

}  // namespace tessel::editing
