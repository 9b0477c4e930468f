// A project, a table of schemes and the runs over them.
#pragma once

#include <gtest/gtest.h>

#include "errorhandlers/CSQLErrorHandler.h"
#include "errorhandlers/RunContext.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "support/Modules.h"
#include "support/SharedDatabase.h"

namespace tessel::test {

/// What a run leaves behind is forgotten at the start of each test.
class HandlersWorld : public testing::Test {
 protected:
  HandlersWorld() {
    namespace insert = mInsertErrorHandlerCode;
    insert::FirstCaseFlag = false;
    insert::PreviewRichText = nullptr;
    for (String* const text : {&insert::ModuleScheme, &insert::FormScheme, &insert::ActiveXScheme,
                               &insert::ClassScheme, &insert::DocumentScheme, &insert::ProjectName,
                               &insert::ComponentName, &insert::MemberName, &insert::MemberType}) {
      text->clear();
    }
    insert::CurrentMemberKind = 0;
    insert::mRecord_ErrorHandlerScheme.clear();
  }

  void NoSchemes() { Database.Connection->Execute(u"DELETE * FROM ErrorHandlerScheme"); }
  void Scheme(const ErrorHandlerScheme& scheme) {
    Table.InsertRecord(scheme.NameError);
    Table.UpdateRecord(scheme);
  }

  void Insert(StringView scope, String scheme) {
    FillRunContext(*Environment().VBE(), nullptr);
    mInsertErrorHandlerCode::RunInsertErrorHandlerCode(Components(), scope, scheme);
  }
  void Remove(StringView scope) {
    FillRunContext(*Environment().VBE(), nullptr);
    mRemoveErrorHandlerCode::RunRemoveErrorHandlerCode(Components(), scope);
  }

  [[nodiscard]] model::Environment& Environment() { return Place.Environment; }
  [[nodiscard]] std::shared_ptr<host::VBComponents> Components() {
    return Environment().VBE()->ActiveVBProject()->VBComponents();
  }

  World Place;
  SharedDatabase Database;
  CSQLErrorHandler Table;
};

}  // namespace tessel::test
