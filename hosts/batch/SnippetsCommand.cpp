#include "hosts/batch/SnippetsCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <optional>
#include <ostream>
#include <sstream>

#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/EditorSnippets.h"
#include "hosts/batch/JetFile.h"
#include "hosts/batch/JetImport.h"
#include "hosts/batch/LibraryFailure.h"
#include "hosts/batch/SnippetLibrary.h"
#include "hosts/files/AtomicFile.h"
#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/Companions.h"
#include "snippets/ColumnSizes.h"
#include "snippets/ObjectFiles.h"
#include "snippets/ObjectRecords.h"
#include "snippets/SnippetFiles.h"
#include "snippets/SnippetFolder.h"
#include "snippets/SnippetSearch.h"
#include "snippets/TreeCheck.h"
#include "vb/CodePages.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

constexpr int TabWidth = 4;

[[noreturn]] void Fail(const std::string& why) {
  throw vb::Failure(vb::InvalidCall, vb::FromUtf8(why), u"Tessel");
}

std::string ReadAll(std::istream& in) {
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void List(CSQLTree& tree, std::ostream& out) {
  for (const SnippetPath& one : PathsOf(tree)) {
    const auto depth = static_cast<std::size_t>(std::max(one.Node.lvl - 2, 0));
    out << one.Node.ID << '\t' << std::string(depth * 2, ' ') << vb::ToUtf8(one.Node.Name);
    if (one.Node.Root == FolderKind) out << '/';
    if (!one.Node.ClassObj.empty()) out << " [" << vb::ToUtf8(one.Node.ClassObj) << ']';
    out << '\n';
  }
}

TreeNode RecordNamed(CSQLTree& tree, const std::string& named) {
  const String path = vb::FromUtf8(named);
  const auto all = PathsOf(tree);
  // A number is what the listings print, so a record that bears it as its name comes behind.
  for (const bool byNumber : {true, false}) {
    for (const SnippetPath& one : all) {
      if (one.Node.Root == FolderKind) continue;
      if (byNumber ? vb::Str(one.Node.ID) == path : vb::SameText(one.Path, path)) return one.Node;
    }
  }
  Fail("there is no record " + named + " (list and find name them)");
}

void Show(CSQLTree& tree, const std::string& named, std::ostream& out) {
  const ListFragment one = tree.GetRecordsetFromList(RecordNamed(tree, named).ID);
  const String code = one.TitleObj + one.TextObj;
  if (!one.TextUserNotes.empty()) {
    for (const String& line : vb::Split(vb::Replace(one.TextUserNotes, u"\r\n", u"\n"), u"\n")) {
      out << "' " << vb::ToUtf8(line) << '\n';
    }
    out << '\n';
  }
  out << vb::ToUtf8(one.Text) << vb::ToUtf8(code);
}

void Find(CSQLTree& tree, const std::vector<std::string>& given, std::ostream& out) {
  std::vector<String> words;
  words.reserve(given.size());
  for (const std::string& word : given) words.push_back(vb::FromUtf8(word));
  for (const SnippetHit& hit : FindSnippets(tree, words)) {
    out << hit.ID << '\t' << vb::ToUtf8(hit.Path) << '\n';
  }
}

/// The text behind a byte order mark; nothing without one.
std::optional<String> MarkedText(std::string_view bytes) {
  constexpr std::string_view Utf8 = "\xEF\xBB\xBF", Little = "\xFF\xFE", Big = "\xFE\xFF";
  if (bytes.starts_with(Utf8)) return vb::FromUtf8(bytes.substr(Utf8.size()));
  const bool big = bytes.starts_with(Big);
  if (!big && !bytes.starts_with(Little)) return std::nullopt;
  if (bytes.size() % 2 != 0) Fail("the text is UTF-16 and ends within a character");
  String text;
  for (std::size_t at = Big.size(); at < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[at + (big ? 1 : 0)]),
               high = static_cast<unsigned char>(bytes[at + (big ? 0 : 1)]);
    text += static_cast<char16_t>(high << 8U | low);
  }
  return text;
}

/// In `codePage`, or when that is 0 UTF-8; what isn't is taken for the code page of the old
/// systems.
String TextOf(const std::string& bytes, int codePage) {
  constexpr int CodePage = 1252;
  if (codePage == 0 || codePage == workspace::Utf8CodePage) {
    if (auto marked = MarkedText(bytes)) return std::move(*marked);
  }
  if (codePage != 0) return workspace::Decode(bytes, codePage);
  String text = vb::FromUtf8(bytes);
  // The sign for what can't be read may stand in the text itself.
  const bool isUtf8 = text.find(u'\xFFFD') == String::npos || vb::ToUtf8(text) == bytes;
  return isUtf8 ? std::move(text) : vb::TextOfBytes(bytes, CodePage);
}

/// A component's file as an object, anything else as a text. A form without a companion is one.
/// `bytes` are those of the file, which is read once: it may be a pipe.
ListFragment ReadFragment(const SnippetsRequest& request, const std::string& bytes) {
  if (request.CodePage != 0 && !workspace::IsKnownCodePage(request.CodePage)) {
    Fail("there is no code page " + std::to_string(request.CodePage));
  }
  ListFragment fragment;
  if (request.File == "-") {
    fragment.Text = TextOf(bytes, request.CodePage);
  } else {
    const String path = fs::absolute(request.File).u16string();
    fragment = mFunctions::FragmentOfFile(path, [&](StringView file, bool companion) {
      if (companion) return mFunctions::GetCompanion(file, false);
      if (request.CodePage == 0) {
        if (auto marked = MarkedText(bytes)) return std::move(*marked);
      }
      return workspace::Decode(
          bytes, request.CodePage != 0 ? request.CodePage : workspace::GuessCodePage({bytes}));
    });
    if (fragment.ClassObj.empty()) {
      fragment.Text = TextOf(bytes, request.CodePage);
    }
  }
  fragment.TextUserNotes = vb::FromUtf8(request.Notes);
  return fragment;
}

void AddRecord(CSQLTree& tree, std::int32_t folder, const String& name,
               const ListFragment& fragment, std::ostream& out) {
  CheckNodeName(name);
  const std::int32_t id = tree.AddNode(name, folder, 0, 0, RecordKind);
  if (id == 0) Fail("\"" + vb::ToUtf8(name) + "\" can't be added to the library");
  tree.UpdateListFragment(id, fragment);
  out << "added " << id << '\t' << vb::ToUtf8(name) << '\n';
}

/// A library keeps the binary file of a form and of a user document; what other kinds draw from one
/// doesn't come in.
void TellOfLostCompanions(const std::string& file, const std::string& bytes,
                          const ListFragment& fragment, std::ostream& err) {
  if (fragment.ClassObj.empty()) return;
  const ObjectClass* const known = ClassOfObject(fragment.ClassObj);
  const fs::path path = fs::absolute(file);
  const fs::path kept =
      known == nullptr || known->Companion.empty()
          ? fs::path()
          : fs::path(path.stem().u16string() + u"." + vb::LCase(known->Companion));
  const bool isNamed =
      vb::InStr(fragment.TitleObj, u"\"" + kept.u16string() + u"\":", vb::Compare::Text) > 0;
  if (!kept.empty() && fragment.CompObj.empty() && isNamed) {
    err << "tessel: " << file << ": its pictures and texts lie in " << kept.string()
        << ", which is missing or empty; the record has come in without them\n";
  }
  for (const auto& one : workspace::CompanionsOf(bytes, path, workspace::GuessCodePage({bytes}))) {
    const fs::path name = one.File.filename();
    if (vb::SameText(name.u16string(), kept.u16string())) continue;
    err << "tessel: " << file << ": its pictures and texts lie in " << name.string()
        << ", which a library doesn't keep with " << vb::ToUtf8(fragment.ClassObj)
        << " objects; keep that file beside the project\n";
  }
}

void Add(CSQLTree& tree, const SnippetsRequest& request, const Streams& streams) {
  const std::string bytes =
      request.File == "-" ? ReadAll(streams.In) : files::ReadFile(request.File);
  const ListFragment fragment = ReadFragment(request, bytes);
  const std::string name =
      !request.Name.empty() ? request.Name : fs::path(request.File).stem().string();
  if (name.empty() || (request.File == "-" && request.Name.empty()))
    Fail("the record needs --name");
  std::ostringstream told;
  store::Transaction transaction(*tree.Connection());
  CheckLibraryWritable(tree);
  AddRecord(tree, FolderAt(tree, vb::FromUtf8(request.Folder)), vb::FromUtf8(name), fragment, told);
  transaction.Commit();
  streams.Out << told.str();
  TellOfLostCompanions(request.File, bytes, fragment, streams.Err);
}

/// A folder that an export wrote may be empty; any other one was hardly meant.
void TellOfNothing(const std::string& folder, std::ostream& out) {
  const std::string text = "nothing to import in " + folder;
  std::error_code error;
  if (!fs::exists(fs::path(folder) / SnippetOrderFile, error)) Fail(text);
  if (ReadSnippetOrder(folder).empty()) out << text << '\n';
}

void Import(CSQLTree& tree, const SnippetsRequest& request, std::ostream& out) {
  // Nothing is told of before it is done.
  std::ostringstream told;
  store::Transaction transaction(*tree.Connection());
  CheckLibraryWritable(tree);
  const String folder = vb::FromUtf8(request.Folder);
  std::error_code error;
  const auto status = fs::status(request.File, error);
  if (fs::is_directory(status)) {
    const auto done = ImportSnippets(tree, request.File, FolderAt(tree, folder));
    if (done.empty()) TellOfNothing(request.File, told);
    for (const ImportedSnippet& one : done) {
      told << (one.Kept       ? "kept "
               : one.Replaced ? "replaced "
                              : "added ")
           << vb::ToUtf8(one.Path) << '\n';
    }
  } else if (fs::exists(status) && !fs::is_regular_file(status)) {
    Fail(request.File + ": is no regular file");
  } else if (IsJetFile(request.File)) {
    const auto done = ImportJet(tree, request.File, FolderAt(tree, folder));
    for (const String& one : done.Findings) {
      told << "mended in the copy: " << vb::ToUtf8(one) << '\n';
    }
    for (const String& one : done.Records) told << "added " << vb::ToUtf8(one) << '\n';
  } else if (vb::SameText(fs::path(request.File).extension().u16string(), u".mdb") &&
             fs::exists(status)) {
    Fail(request.File +
         ": is no Jet database; a library of this program is brought over by export and import");
  } else {
    const auto records = ReadEditorSnippets(files::ReadFile(request.File), request.File);
    const std::int32_t parent = FolderAt(tree, folder);
    for (const NamedFragment& one : records) {
      AddRecord(tree, parent, one.Name, one.Fragment, told);
    }
  }
  transaction.Commit();
  out << told.str();
}

/// What killed exports left in a folder and those below it.
void RemoveStraysBelow(const fs::path& folder) {
  files::RemoveStrays(folder);
  std::error_code error;
  fs::recursive_directory_iterator entry(folder, error), end;
  for (; !error && entry != end; entry.increment(error)) {
    if (!entry->is_directory(error) || entry->is_symlink(error)) continue;
    // Of version control and the like.
    if (entry->path().filename().string().front() == '.') {
      entry.disable_recursion_pending();
    } else {
      files::RemoveStrays(entry->path());
    }
  }
}

void Export(CSQLTree& tree, const fs::path& folder, std::ostream& out) {
  CheckLibrarySound(tree);
  RemoveStraysBelow(folder);
  const auto done = ExportSnippets(
      tree, folder,
      [](const fs::path& file, const std::string& bytes) { files::WriteFile(file, bytes); });
  for (const fs::path& file : done.Written) out << (folder / file).string() << '\n';
  for (const fs::path& file : done.Removed) {
    out << "removed " << (folder / file).string() << '\n';
  }
  for (const fs::path& file : done.Kept) out << "kept " << (folder / file).string() << '\n';
}

int Check(CSQLTree& tree, bool look, std::ostream& out) {
  const auto found = CheckTree(tree.Connection(), !look);
  for (const String& one : found) out << vb::ToUtf8(one) << '\n';
  return look && !found.empty() ? WouldChange : Done;
}

int Carry(CSQLTree& tree, const SnippetsRequest& request, const Streams& streams) {
  switch (request.Verb) {
    case SnippetsVerb::List:
      List(tree, streams.Out);
      break;
    case SnippetsVerb::Show:
      Show(tree, request.Record, streams.Out);
      break;
    case SnippetsVerb::Find:
      Find(tree, request.Words, streams.Out);
      break;
    case SnippetsVerb::Add:
      Add(tree, request, streams);
      break;
    case SnippetsVerb::Export:
      Export(tree, request.File, streams.Out);
      break;
    case SnippetsVerb::Import:
      Import(tree, request, streams.Out);
      break;
    case SnippetsVerb::Check:
      return Check(tree, request.Look, streams.Out);
  }
  return Done;
}

}  // namespace

CLI::App* SnippetsCommand::Declare(CLI::App& program) {
  auto* const snippets = program.add_subcommand("snippets", "A library of code snippets");
  snippets->require_subcommand(1);
  const auto add = [&](const char* name, const char* what, SnippetsVerb verb) {
    auto* const command = snippets->add_subcommand(name, what);
    command
        ->add_option("--library", Request.Library,
                     "file of the library, or the name of one that the program has open")
        ->default_str("the user's main library");
    command->add_option("--data", Request.Data, "the program's directory")
        ->default_str("the user's");
    command->add_option("--settings", Request.Settings, "file of the program's settings")
        ->default_str("the user's");
    command->callback([this, verb] { Request.Verb = verb; });
    return command;
  };
  const auto folder = [&](CLI::App* command) {
    command->add_option("--folder", Request.Folder, "folder of the library, \"/\" between names")
        ->default_str("the top");
  };
  add("list", "Name all folders and records", SnippetsVerb::List);
  add("show", "Print a record", SnippetsVerb::Show)
      ->add_option("record", Request.Record, "its number, or its path with \"/\" between names")
      ->required();
  add("find", "Records that hold every word, the best first", SnippetsVerb::Find)
      ->add_option("words", Request.Words, "looked for in names, notes and text, in any case")
      ->required();
  auto* const added = add("add", "Add a text or a component's file", SnippetsVerb::Add);
  added->add_option("file", Request.File, "the file; - reads a text from standard input")
      ->required();
  added->add_option("--name", Request.Name, "name of the record")->default_str("the file's");
  added->add_option("--notes", Request.Notes, "notes of the record");
  added->add_option("--code-page", Request.CodePage, "code page of the file")
      ->default_str("guessed");
  folder(added);
  add("export", "Write all records to a folder, one file each", SnippetsVerb::Export)
      ->add_option("folder", Request.File, "made when needed")
      ->required();
  auto* const import = add("import", "Read records, all or none", SnippetsVerb::Import);
  import
      ->add_option("from", Request.File,
                   "a folder that export wrote, a .code-snippets file of another editor, or a Jet "
                   "database of the old system (.mdb)")
      ->required();
  folder(import);
  add("check", "Find and mend damaged numbers of a library", SnippetsVerb::Check)
      ->add_flag("--check", Request.Look, "mend nothing; exit 1 when something is damaged");
  return snippets;
}

int SnippetsCommand::Run(const Streams& streams) {
  try {
    const auto tree = OpenLibrary(Request.Library, Request.Data, Request.Settings);
    BatchPlatform services(TabWidth);
    const platform::ScopedPlatform scope(services);
    try {
      return Carry(*tree, Request, streams);
    } catch (const vb::Failure& failure) {
      throw Explained(failure, *tree);
    }
  } catch (...) {
    streams.Err << "tessel: " << vb::CurrentFailure().what() << '\n';
    return Failed;
  }
}

}  // namespace tessel::batch
