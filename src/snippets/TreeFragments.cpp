// The rows of List.

#include "snippets/ColumnSizes.h"
#include "snippets/TreeCommands.h"

namespace tessel {
namespace {

struct FragmentColumn {
  StringView Name;
  String ListFragment::*Text;
};
/// In the order in which they are written.
constexpr FragmentColumn Columns[] = {{u"TitleObj", &ListFragment::TitleObj},
                                      {u"TextObj", &ListFragment::TextObj},
                                      {u"CompObj", &ListFragment::CompObj},
                                      {u"NameObj", &ListFragment::NameObj},
                                      {u"ClassObj", &ListFragment::ClassObj},
                                      {u"Text", &ListFragment::Text},
                                      {u"TextUserNotes", &ListFragment::TextUserNotes}};

String SelectList(std::int32_t id) {
  return u"SELECT List.* From List WHERE (List.Id= " + vb::Str(id) + u")";
}

}  // namespace

ListFragment CSQLTree::GetRecordsetFromList(std::int32_t id) {
  return TreeService.Guard([&] {
    ListFragment fragment;
    store::Recordset records;
    if (Open(records, u"Select * From List WHERE Id=" + vb::Str(id)).Eof()) return fragment;
    for (const FragmentColumn& one : Columns) {
      fragment.*one.Text = store::ToText(records.Field(one.Name));
    }
    return fragment;
  });
}

void CSQLTree::UpdateListFragment(std::int32_t id, const ListFragment& fragment) {
  TreeService.Guard([&] {
    if (!connection_) throw vb::RuntimeFailure(vb::ObjectNotSet);
    CheckObject(fragment);
    store::Transaction transaction(*connection_);
    InsertIdTableList(id);
    store::Recordset records;
    if (!Open(records, SelectList(id)).Eof() && store::ToLong(records.Field(u"Id")) == id) {
      for (const FragmentColumn& one : Columns) {
        const String& text = fragment.*one.Text;
        if (!text.empty()) records.SetField(one.Name, text);
      }
      records.Update();
    }
    transaction.Commit();
  });
}

void CSQLTree::InsertIdTableList(std::int32_t id) {
  TreeService.Guard([&] {
    if (CheckIdTableList(id)) return;
    store::Command(connection_, u"INSERT INTO List (Id) VALUES (@Id)", {{u"@ID", std::int64_t{id}}})
        .Execute();
  });
}

bool CSQLTree::CheckIdTableList(std::int32_t id) {
  return TreeService.Guard([&] {
    store::Recordset records;
    return !Open(records, SelectList(id)).Eof();
  });
}

}  // namespace tessel
