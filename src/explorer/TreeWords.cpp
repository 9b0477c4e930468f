#include "explorer/TreeWords.h"

#include <algorithm>
#include <utility>

#include "explorer/ExplorerRows.h"
#include "vb/Text.h"

namespace tessel::explorer {
namespace {

using forms::GridRow;

/// What input methods put between words of wide letters.
constexpr char16_t WideBlank = 0x3000;

}  // namespace

TreeWords::TreeWords(StringView text) {
  String folded = vb::LCase(text);
  std::replace(folded.begin(), folded.end(), WideBlank, u' ');
  for (const String& word : vb::Split(folded, u" ")) {
    const bool minus = word.starts_with(u'-');
    String part = minus ? word.substr(1) : word;
    if (!part.empty()) (minus ? unwanted_ : wanted_).push_back(std::move(part));
  }
}

std::vector<bool> TreeWords::FoundIn(StringView folded, const std::vector<bool>& above,
                                     bool& own) const {
  std::vector<bool> found = above;
  found.resize(wanted_.size());
  own = false;
  for (std::size_t at = 0; at < wanted_.size(); ++at) {
    if (folded.find(wanted_[at]) == StringView::npos) continue;
    found[at] = own = true;
  }
  return found;
}

bool TreeWords::IsUnwanted(StringView folded) const {
  return std::any_of(unwanted_.begin(), unwanted_.end(),
                     [&](const String& part) { return folded.find(part) != StringView::npos; });
}

/// A row on the way down to the present one.
struct TreeWords::State {
  std::size_t Row;
  int Level;
  std::vector<bool> Found;
  bool IsGone, BelowFind;
};

int TreeWords::Narrow(std::vector<GridRow>& rows) const {
  std::vector<bool> kept(rows.size()), finds(rows.size()), opened(rows.size());
  std::vector<State> above;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    while (!above.empty() && above.back().Level >= rows[row].Level) above.pop_back();
    const String folded =
        rows[row].Cells[CaptionColumn].Read([](StringView text) { return vb::LCase(text); });
    const State* const over = above.empty() ? nullptr : &above.back();
    bool own = false;
    State state{row,
                rows[row].Level,
                {},
                (over != nullptr && over->IsGone) || IsUnwanted(folded),
                over != nullptr && over->BelowFind};
    state.Found = FoundIn(folded, over != nullptr ? over->Found : std::vector<bool>(), own);
    finds[row] = own && !state.IsGone &&
                 std::find(state.Found.begin(), state.Found.end(), false) == state.Found.end();
    kept[row] = !state.IsGone && (finds[row] || state.BelowFind || wanted_.empty());
    state.BelowFind = state.BelowFind || finds[row];
    if (finds[row]) {
      for (const State& one : above) kept[one.Row] = opened[one.Row] = true;
    }
    above.push_back(std::move(state));
  }
  int first = -1;
  std::size_t end = 0;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (!kept[row]) continue;
    if (finds[row] && first < 0) first = static_cast<int>(end);
    if (!wanted_.empty()) rows[row].Collapsed = rows[row].Level < MemberLevel && !opened[row];
    if (end != row) rows[end] = std::move(rows[row]);
    ++end;
  }
  rows.resize(end);
  return first;
}

}  // namespace tessel::explorer
