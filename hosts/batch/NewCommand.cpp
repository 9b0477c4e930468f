#include "hosts/batch/NewCommand.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <unordered_set>

#include "connections/CSQLDataType.h"
#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/BuilderRecords.h"
#include "hosts/batch/Command.h"
#include "hosts/batch/Inputs.h"
#include "hosts/batch/NewTarget.h"
#include "hosts/batch/PersonalDatabase.h"
#include "hosts/editing/Declarations.h"
#include "hosts/files/AtomicFile.h"
#include "hosts/workspace/Workspace.h"
#include "insertion/BlankLines.h"
#include "insertion/mGlobals.h"
#include "scanning/mFunctions.h"
#include "vb/ByteText.h"

namespace tessel::batch {
namespace {

using builders::CollectionChoices;
using builders::EnumChoices;
using builders::ProcedureChoices;
using builders::PropertyChoices;

[[noreturn]] void Fail(const String& why) { throw vb::Failure(vb::InvalidCall, why, u"Tessel"); }

/// What goes to the end of the declarations, and what goes to the end of the module. Properties
/// bring both: their variables stand together.
struct ModuleText {
  String Declarations, Members;
};

void Add(ModuleText& text, const ProcedureChoices& choices) {
  text.Members += builders::GeneratorTextMethod(choices) + String(vb::CrLf);
}
void Add(ModuleText& text, const PropertyChoices& choices) {
  builders::PropertyText property = builders::GeneratorTextProperty(choices);
  text.Declarations += StringView(property.Declaration).substr(0, property.Declaration.size() - 2);
  text.Members += property.Body;
}
void Add(ModuleText& text, const EnumChoices& choices) {
  text.Declarations += builders::GeneratorText(choices) + String(vb::CrLf);
}
void Add(ModuleText& text, const CollectionChoices& choices) {
  text.Members += builders::GeneratorTextClass(choices) + String(vb::CrLf);
}

/// Gives each property without a prefix that of its type; an unknown type gets none that would
/// make a name, so it is refused.
void FindPrefixes(std::vector<BuilderRecord>& records) {
  std::optional<std::vector<CSQLDataType::Row>> types;
  for (BuilderRecord& record : records) {
    auto* const property = std::get_if<PropertyChoices>(&record);
    if (property == nullptr || !property->Prefix.empty()) continue;
    if (!types) types = CSQLDataType().GetAllTypeMemberVariable(u"");
    if (!types) types.emplace();
    for (const CSQLDataType::Row& row : *types) {
      if (vb::SameText(row.Name, property->ValueType)) property->Prefix = row.Prefix;
    }
    if (property->Prefix.empty()) {
      Fail(u"the property " + property->Name + u": the type " + property->ValueType +
           u" has no prefix in the table of types; name one");
    }
    if (property->MemberVariable.empty()) property->MemberVariable = property->Prefix;
  }
}

void Check(const std::vector<BuilderRecord>& records) {
  for (const BuilderRecord& record : records) {
    if (const String fault = FaultOf(record); !fault.empty()) Fail(NameOf(record) + u": " + fault);
  }
}

std::vector<BuilderRecord> ReadRecords(const NewRequest& request, std::istream& in) {
  if (request.From.empty()) return ReadBuilderRecords(request.Record, "the options", request.Kind);
  if (request.From != "-") {
    return ReadBuilderRecords(files::ReadFile(request.From), request.From, request.Kind);
  }
  const std::string json{std::istreambuf_iterator<char>(in), {}};
  return ReadBuilderRecords(json, "standard input", request.Kind);
}

/// Whether the name of what is declared may not be that of something else in the module.
bool StandsAlone(editing::DeclaredKind kind) {
  switch (kind) {
    case editing::DeclaredKind::Field:
    case editing::DeclaredKind::Value:
    case editing::DeclaredKind::Parameter:
    case editing::DeclaredKind::Local:
    case editing::DeclaredKind::Label:
      return false;
    default:
      return true;
  }
}

bool IsCollection(const BuilderRecord& record) {
  return std::holds_alternative<CollectionChoices>(record);
}

/// Puts records into the projects of a workspace.
class Inserter {
 public:
  Inserter(const workspace::Workspace& environment, const NewRequest& request)
      : target_(environment, request.NewComponent),
        vbe_(environment.VBE()),
        component_(vb::FromUtf8(request.Component)) {}

  void Insert(const std::vector<BuilderRecord>& records) {
    const auto first = std::find_if_not(records.begin(), records.end(), IsCollection);
    if (first == records.end() && !component_.empty()) {
      Fail(u"--component is not for collections: they make classes of their own");
    }
    for (const BuilderRecord& record : records) {
      if (const auto* const choices = std::get_if<CollectionChoices>(&record)) {
        MakeClasses(*choices);
      }
    }
    if (first == records.end()) return;
    Choose(*first);
    ModuleText text;
    for (const BuilderRecord& record : records) {
      if (IsCollection(record)) continue;
      Refuse(NameOf(record));
      if (const auto* const property = std::get_if<PropertyChoices>(&record)) {
        Refuse(builders::VariableOf(*property));
      }
      std::visit([&](const auto& choices) { Add(text, choices); }, record);
    }
    Into(component_, std::move(text.Declarations), mGlobals::EndOfDeclarations,
         host::vbext_ct_StdModule);
    Into(component_, std::move(text.Members), mGlobals::EndOfModule, host::vbext_ct_StdModule);
  }

 private:
  /// Finds the component of all records that aren't collections and the names that it has.
  void Choose(const BuilderRecord& first) {
    if (component_.empty()) component_ = target_.OnlyComponent();
    if (component_.empty()) Fail(NameOf(first) + u": --component says where it goes");
    const auto component = target_.Choose(component_);
    if (!component) return;
    const auto module = ModuleOf(component_);
    if (const auto table = mFunctions::AllNameProcedures(module, u"")) {
      for (const Member& member : *table) names_.insert(vb::UCase(member.Name));
    }
    model::CodeModule& code = *component->Module();
    for (const editing::Declared& declared :
         editing::ReadDeclarations(code.Buffer(), 1, code.Index().CountOfDeclarationLines())) {
      if (StandsAlone(declared.Kind)) names_.insert(vb::UCase(declared.Name));
    }
  }

  void MakeClasses(const CollectionChoices& choices) {
    target_.ChooseBeside(choices.BaseClass);
    if (mGlobals::CheckComponentName(vbe_, choices.ClassName)) {
      Fail(mFunctions::MessageText(8, choices.ClassName));
    }
    Into(choices.ClassName, builders::GeneratorTextClass(choices), mGlobals::EndOfModule,
         host::vbext_ct_ClassModule);
    if (mGlobals::CheckComponentName(vbe_, choices.BaseClass)) return;
    Into(choices.BaseClass, builders::BaseClassText(), mGlobals::EndOfModule,
         host::vbext_ct_ClassModule);
  }

  /// One blank line stands between what is there and what comes.
  void Into(StringView component, String text, mGlobals::InsertMode mode,
            host::vbext_ComponentType type) {
    text.resize(blanklines::WithoutLineEnds(text).size());
    if (text.empty()) return;
    if (const auto module = ModuleOf(component)) {
      const int count = module->CountOfLines();
      if (mode == mGlobals::EndOfModule) {
        text = blanklines::PrecededByOne(text, *module, count + 1);
      } else if (module->CountOfDeclarationLines() < count) {
        text += vb::CrLf;  // a blank line is wanted ahead of what follows
      }
    }
    mGlobals::InsertTextActiveVbComponent(vbe_, component, text, mode, u"", type, 0);
  }
  /// Nothing for a component that isn't there.
  [[nodiscard]] std::shared_ptr<host::CodeModule> ModuleOf(StringView component) const {
    if (!mGlobals::CheckComponentName(vbe_, component)) return nullptr;
    auto module = vbe_->ActiveVBProject()->VBComponents()->Item(component)->CodeModule();
    if (!module) Fail(String(component) + u" has no code");
    return module;
  }

  /// Names that the component has already, or that two records share, would not compile.
  void Refuse(const String& name) {
    if (!names_.insert(vb::UCase(name)).second) {
      Fail(component_ + u" has a member " + name + u" already");
    }
  }

  NewTarget target_;
  std::shared_ptr<host::VBE> vbe_;
  String component_;
  std::unordered_set<String> names_;  // in upper case
};

void Print(const std::vector<BuilderRecord>& records, std::ostream& out) {
  ModuleText text;
  for (const BuilderRecord& record : records) {
    std::visit([&](const auto& choices) { Add(text, choices); }, record);
  }
  if (!text.Declarations.empty() && !text.Members.empty()) text.Declarations += vb::CrLf;
  out << vb::ToUtf8(text.Declarations + text.Members);
}

void Carry(const NewRequest& request, std::istream& in, std::ostream& out, std::ostream& err) {
  BatchPlatform services(4);
  const platform::ScopedPlatform scope(services);
  const SharedDatabase shared(OpenPersonal(SchemeData(request.Data)));
  std::vector<BuilderRecord> records = ReadRecords(request, in);
  FindPrefixes(records);
  Check(records);
  if (request.Into.empty()) {
    Print(records, out);
    return;
  }
  workspace::Workspace environment(services, {request.CodePage});
  environment.Open(request.Into);
  const TypedPaths paths(request.Into.string());
  for (const String& notice : environment.TakeNotices()) {
    err << "tessel: " << paths.In(vb::ToBytes(notice)) << '\n';
  }
  for (const workspace::Problem& problem : environment.Problems()) {
    err << "tessel: " << paths.In(problem.what()) << '\n';
  }
  Inserter(environment, request).Insert(records);
  for (const auto& file : environment.Save()) out << paths.Of(file) << '\n';
}

}  // namespace

int RunNew(const NewRequest& request, std::istream& in, std::ostream& out, std::ostream& err) {
  try {
    Carry(request, in, out, err);
    return Done;
  } catch (...) {
    const std::string cause = vb::CurrentFailure().what();
    err << "tessel: "
        << (request.Into.empty() ? cause : TypedPaths(request.Into.string()).In(cause)) << '\n';
    return Failed;
  }
}

}  // namespace tessel::batch
