#include "hosts/batch/NewCommand.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "connections/CSQLDataType.h"
#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/BuilderRecords.h"
#include "hosts/batch/Command.h"
#include "hosts/batch/DeclarationPlace.h"
#include "hosts/batch/Inputs.h"
#include "hosts/batch/NewTarget.h"
#include "hosts/batch/OpenCode.h"
#include "hosts/batch/PersonalDatabase.h"
#include "hosts/editing/Declarations.h"
#include "hosts/files/AtomicFile.h"
#include "hosts/model/Designer.h"
#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/Workspace.h"
#include "insertion/BlankLines.h"
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
  /// Makes room for the members of so many records: a long text is not moved while it grows.
  explicit ModuleText(std::size_t records) {
    constexpr std::size_t UsualLength = 256;
    Members.reserve(records * UsualLength);
  }
  String Declarations, Members;
  bool Apart = false;          ///< a blank line belongs ahead of the declarations
  bool AfterVariable = false;  ///< the declarations end in a variable, with no blank line behind
};

void Add(ModuleText& text, const ProcedureChoices& choices) {
  text.Members += builders::GeneratorTextMethod(choices) + String(vb::CrLf);
}
void Add(ModuleText& text, const PropertyChoices& choices) {
  builders::AppendTextProperty(choices, text.Declarations, text.Members);
  text.Declarations.resize(text.Declarations.size() - vb::CrLf.size());  // the empty line
  text.AfterVariable = true;
}
void Add(ModuleText& text, const EnumChoices& choices) {
  if (text.Declarations.empty()) text.Apart = true;
  if (text.AfterVariable) text.Declarations += vb::CrLf;
  text.AfterVariable = false;
  text.Declarations += builders::GeneratorText(choices) + String(vb::CrLf);
}
void Add(ModuleText& text, const CollectionChoices& choices) {
  text.Members += builders::GeneratorTextClass(choices) + String(vb::CrLf);
}

/// The types are read where a record asks for one: the rest goes without a shared database.
std::vector<CSQLDataType::Row> ReadTypes(const NewRequest& request) {
  const SharedDatabase shared(OpenPersonal(SchemeData(request.Data)));
  return CSQLDataType().GetAllTypeMemberVariable(u"").value_or(std::vector<CSQLDataType::Row>());
}

/// Gives each property without a prefix that of its type; an unknown type gets none that would
/// make a name, so it is refused.
void FindPrefixes(const NewRequest& request, std::vector<BuilderRecord>& records) {
  std::optional<std::vector<CSQLDataType::Row>> types;
  for (BuilderRecord& record : records) {
    auto* const property = std::get_if<PropertyChoices>(&record);
    if (property == nullptr || !property->Prefix.empty()) continue;
    if (!types) types = ReadTypes(request);
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

/// Classes have names of the project, the others have names of one module.
void CheckNames(const std::vector<BuilderRecord>& records) {
  std::unordered_set<String> classes, members;  // in upper case
  members.reserve(2 * records.size());
  const auto take = [](std::unordered_set<String>& names, const String& name) {
    if (!names.insert(vb::UCase(name)).second) Fail(name + u" is the name of two records");
  };
  for (const BuilderRecord& record : records) {
    take(std::holds_alternative<CollectionChoices>(record) ? classes : members, NameOf(record));
    if (const auto* const property = std::get_if<PropertyChoices>(&record)) {
      take(members, builders::VariableOf(*property));
    }
  }
}

void Check(const std::vector<BuilderRecord>& records) {
  for (const BuilderRecord& record : records) {
    if (const String fault = FaultOf(record); !fault.empty()) Fail(NameOf(record) + u": " + fault);
  }
  CheckNames(records);
}

/// What says where text goes, or how a file is read, says nothing of text that is printed.
void CheckPrinted(const NewRequest& request) {
  if (!request.Into.empty()) return;
  const std::pair<bool, StringView> given[] = {{!request.Component.empty(), u"--component"},
                                               {request.NewComponent, u"--new-component"},
                                               {request.CodePage != 0, u"--code-page"}};
  for (const auto& [is, option] : given) {
    if (is) Fail(String(option) + u" is for a file, which --into names");
  }
}

/// Text is put into sources only: whatever else a file is, it would be spoilt.
void CheckInto(const std::filesystem::path& file) {
  std::error_code error;
  if (file.empty() || !std::filesystem::exists(file, error)) return;
  if (std::filesystem::is_directory(file, error)) {
    Fail(vb::FromUtf8(file.string()) + u": is a folder; --into takes a file");
  }
  if (!HasSourceExtension(file)) {
    Fail(vb::FromUtf8(file.string()) + u": is no project, group or component");
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

String FirstCharacter(StringView text) {
  const bool isPair = text.size() > 1 && (text.front() & 0xFC00) == 0xD800;
  return String(text.substr(0, isPair ? 2 : 1));
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
      : environment_(environment),
        target_(environment, request.NewComponent),
        component_(vb::FromUtf8(request.Component)),
        isPageChosen_(request.CodePage != 0) {}

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
    auto component = Choose(*first);
    ModuleText text(records.size());
    for (const BuilderRecord& record : records) {
      if (IsCollection(record)) continue;
      RefuseTaken(NameOf(record));
      if (const auto* const property = std::get_if<PropertyChoices>(&record)) {
        RefuseTaken(builders::VariableOf(*property));
      }
      std::visit([&](const auto& choices) { Add(text, choices); }, record);
    }
    if (!component) component = target_.Make(component_, host::vbext_ct_StdModule);
    CheckPage(*component, text);
    model::CodeModule& code = ModuleOf(*component);
    if (!text.Members.empty()) CheckOpen(*component, code.CountOfLines() + 1);
    if (!text.Declarations.empty()) CheckOpen(*component, LineForDeclarations(code));
    IntoDeclarations(code, std::move(text.Declarations), text.Apart);
    ToTheEnd(code, std::move(text.Members));
  }

 private:
  using ComponentPtr = std::shared_ptr<model::VBComponent>;

  /// Finds the component of all records that aren't collections and the names that it has. Null for
  /// one that is to be made.
  ComponentPtr Choose(const BuilderRecord& first) {
    if (component_.empty()) component_ = target_.OnlyComponent();
    if (component_.empty()) Fail(NameOf(first) + u": --component says where it goes");
    auto component = target_.Choose(component_);
    if (component) TakeNames(component);
    return component;
  }

  void TakeNames(const ComponentPtr& component) {
    model::CodeModule& code = ModuleOf(*component);
    if (const auto table = mFunctions::AllNameProcedures(component->CodeModule(), u"")) {
      for (const Member& member : *table) names_.insert(vb::UCase(member.Name));
    }
    for (const editing::Declared& declared :
         editing::ReadDeclarations(code.Buffer(), 1, code.Index().CountOfDeclarationLines())) {
      if (StandsAlone(declared.Kind)) names_.insert(vb::UCase(declared.Name));
    }
    if (!component->OwnDesigner()) return;
    for (const model::DesignerNode* control : component->OwnDesigner()->Tree().Controls()) {
      names_.insert(vb::UCase(control->Name));
    }
  }

  void MakeClasses(const CollectionChoices& choices) {
    target_.ChooseBeside(choices.BaseClass);
    target_.CheckClass(choices.BaseClass);
    if (vb::SameText(choices.ClassName, choices.BaseClass)) {
      Fail(choices.ClassName + u" would be the class of its own items");
    }
    if (target_.IsTaken(choices.ClassName)) Fail(mFunctions::MessageText(8, choices.ClassName));
    MakeClass(choices.ClassName, builders::GeneratorTextClass(choices));
    if (!target_.IsTaken(choices.BaseClass)) {
      MakeClass(choices.BaseClass, builders::BaseClassText());
    }
  }
  void MakeClass(const String& name, String text) {
    ToTheEnd(ModuleOf(*target_.Make(name, host::vbext_ct_ClassModule)), std::move(text));
  }

  /// One blank line stands between what is there and what comes, but variables stand with those
  /// that are there, unless a comment would take them in.
  static void IntoDeclarations(model::CodeModule& code, String text, bool apart) {
    text.resize(blanklines::WithoutLineEnds(text).size());
    if (text.empty()) return;
    const int line = LineForDeclarations(code);
    if (apart || ReadAhead(code.Buffer(), line).GoesOn) {
      text = blanklines::PrecededByOne(std::move(text), code, line);
    }
    if (line <= code.CountOfLines()) text += vb::CrLf;  // a blank line is wanted behind it
    code.InsertLines(line, blanklines::FollowedByOne(text, code, line));
  }
  /// One blank line stands between what is there and what comes.
  static void ToTheEnd(model::CodeModule& code, String text) {
    text.resize(blanklines::WithoutLineEnds(text).size());
    if (text.empty()) return;
    const int line = code.CountOfLines() + 1;
    code.InsertLines(line, blanklines::PrecededByOne(std::move(text), code, line));
  }
  /// Code without an end would take in what comes ahead of the line. It is told by its place in the
  /// file, which holds nothing new yet.
  void CheckOpen(model::VBComponent& component, int line) const {
    const CodeAhead ahead = ReadAhead(ModuleOf(component).Buffer(), line);
    if (!ahead.Open) return;
    Fail(vb::FromUtf8(environment_.FileOf(component).string()) + u":" +
         vb::Str(environment_.FileLine(component, ahead.Open->Line)) + u": " + ahead.Open->Why +
         u"; what is new would become a part of it");
  }
  /// A component file that holds nothing beyond ASCII says nothing of its page, and the projects
  /// that name it may read another one than is guessed.
  void CheckPage(const model::VBComponent& component, const ModuleText& text) const {
    constexpr char16_t LastPlain = 0x7F;
    const auto isPlain = [](char16_t unit) { return unit <= LastPlain; };
    if (isPageChosen_ || target_.OnlyComponent().empty()) return;
    if (!workspace::IsAscii(environment_.StoredBytes(component))) return;
    for (const String* const part : {&text.Declarations, &text.Members}) {
      const auto* const end = part->data() + part->size();
      const auto* const other = std::find_if_not(part->data(), end, isPlain);
      if (other == end) continue;
      Fail(vb::FromUtf8(environment_.FileOf(component).string()) +
           u": nothing in it tells the code page of \"" + FirstCharacter({other, end}) +
           u"\"; --code-page does, or the file of its project in --into");
    }
  }
  static model::CodeModule& ModuleOf(model::VBComponent& component) {
    const auto& module = component.Module();
    if (!module) Fail(component.PlainName() + u" has no code");
    return *module;
  }

  /// A name that the component has already would not compile. No two records share one.
  void RefuseTaken(const String& name) const {
    if (names_.contains(vb::UCase(name))) {
      Fail(component_ + u" has a member " + name + u" already");
    }
  }

  const workspace::Workspace& environment_;
  NewTarget target_;
  String component_;
  bool isPageChosen_;
  std::unordered_set<String> names_;  // in upper case
};

void Print(const std::vector<BuilderRecord>& records, std::ostream& out) {
  ModuleText text(records.size());
  for (const BuilderRecord& record : records) {
    std::visit([&](const auto& choices) { Add(text, choices); }, record);
  }
  if (!text.Declarations.empty() && !text.Members.empty()) text.Declarations += vb::CrLf;
  out << vb::ToUtf8(text.Declarations + text.Members);
}

void Carry(const NewRequest& request, std::istream& in, std::ostream& out, std::ostream& err) {
  BatchPlatform services(4);
  const platform::ScopedPlatform scope(services);
  CheckPrinted(request);
  CheckInto(request.Into);
  std::vector<BuilderRecord> records = ReadRecords(request, in);
  FindPrefixes(request, records);
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
