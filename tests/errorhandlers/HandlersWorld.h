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

class HandlersWorld : public testing::Test {
 protected:
  void NoSchemes() { Database.Connection->Execute(u"DELETE * FROM ErrorHandlerScheme"); }
  void Scheme(const ErrorHandlerScheme& scheme) {
    Table.InsertRecord(scheme.NameError);
    Table.UpdateRecord(scheme);
  }

  RunResult Insert(StringView scope, String scheme) {
    FillNames(Statements(), Context, Environment().VBE());
    return mInsertErrorHandlerCode::RunInsertErrorHandlerCode(Context, Components(), scope, scheme);
  }
  RunResult Remove(StringView scope) {
    FillNames(Statements(), Context, Environment().VBE());
    return mRemoveErrorHandlerCode::RunRemoveErrorHandlerCode(Context, Components(), scope);
  }

  [[nodiscard]] model::Environment& Environment() { return Place.Environment; }
  [[nodiscard]] std::shared_ptr<host::VBComponents> Components() {
    return Environment().VBE()->ActiveVBProject()->VBComponents();
  }

  /// Of all runs of a test, as the add-in has one for all dialogs.
  mInsertErrorHandlerCode::RunContext Context;
  World Place;
  SharedDatabase Database;
  CSQLErrorHandler Table;
};

}  // namespace tessel::test
