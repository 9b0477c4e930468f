// The open databases, keyed by name exactly as given.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "connections/cConnectionMDB.h"

namespace tessel {

/// In the order of adding. A missing key fails with 5, a double one with 457.
class cConnectionMDBs {
 public:
  void Add(const std::shared_ptr<cConnectionMDB>& object, StringView key);
  void Remove(StringView key);
  [[nodiscard]] const std::shared_ptr<cConnectionMDB>& item(StringView key) const;
  [[nodiscard]] std::size_t Count() const { return items_.size(); }
  void Clear() { items_.clear(); }

  [[nodiscard]] auto begin() const { return items_.begin(); }
  [[nodiscard]] auto end() const { return items_.end(); }

 private:
  std::vector<std::pair<String, std::shared_ptr<cConnectionMDB>>> items_;
};

/// The open connections, between connection and disconnection of the add-in.
extern std::shared_ptr<cConnectionMDBs> gConnectionMDBs;

/// Names of the two standard connections.
inline constexpr StringView MainConnection = u"Marlow";
inline constexpr StringView SharedConnection = u"PersonalMarlow";

}  // namespace tessel
