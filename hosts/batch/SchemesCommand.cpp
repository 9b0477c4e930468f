#include "hosts/batch/SchemesCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <ostream>

#include "errorhandlers/CSQLErrorHandler.h"
#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/PersonalDatabase.h"
#include "hosts/batch/SchemeText.h"
#include "hosts/files/AtomicFile.h"
#include "hosts/files/SystemFiles.h"
#include "hosts/files/Transaction.h"
#include "hosts/linux/LinuxApp.h"
#include "store/Seeds.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;
using Schemes = std::vector<ErrorHandlerScheme>;

[[noreturn]] void Fail(const std::string& why) {
  throw vb::Failure(vb::InvalidCall, vb::FromUtf8(why), u"Tessel");
}

const ErrorHandlerScheme* Find(const Schemes& schemes, StringView name) {
  const auto found = std::find_if(schemes.begin(), schemes.end(), [&](const auto& one) {
    return vb::SameText(one.NameError, name);
  });
  return found == schemes.end() ? nullptr : &*found;
}

const ErrorHandlerScheme& Named(const Schemes& schemes, const std::string& name) {
  const ErrorHandlerScheme* const found = Find(schemes, vb::FromUtf8(name));
  if (found == nullptr) Fail("there is no scheme \"" + name + '"');
  return *found;
}

void Export(const SchemesRequest& request, const Schemes& all, std::ostream& out) {
  std::vector<files::Change> changes;
  const Schemes chosen = request.Name.empty() ? all : Schemes{Named(all, request.Name)};
  for (const ErrorHandlerScheme& scheme : chosen) {
    const fs::path file = request.Folder / SchemeFileName(vb::ToUtf8(scheme.NameError));
    changes.push_back({file, files::PresentBytes(file), WriteScheme(scheme)});
  }
  fs::create_directories(request.Folder);
  files::FinishInterrupted(request.Folder, [&](const fs::path& file) {
    return file.parent_path() == request.Folder.lexically_normal();
  });
  files::WriteTogether(request.Folder, changes);
  for (const auto& change : changes) out << change.File.string() << '\n';
}

struct Imported {
  std::string File;
  ErrorHandlerScheme Scheme;
  bool Replaces = false;
};

/// Reads all files, so that the first bad one is named before anything is written.
std::vector<Imported> ReadFiles(const SchemesRequest& request, const Schemes& all) {
  std::vector<Imported> read;
  for (const std::string& file : request.Files) {
    Imported one{file, ReadScheme(files::ReadFile(file), file)};
    const std::string name = vb::ToUtf8(one.Scheme.NameError);
    const auto refuse = [&](const std::string& why) {
      std::string message = file;
      Fail(message.append(": the scheme \"").append(name).append(why));
    };
    if (name.find('"') != std::string::npos) {
      refuse("\" can't be found again, since its name holds a quote character");
    }
    for (const Imported& earlier : read) {
      if (vb::SameText(earlier.Scheme.NameError, one.Scheme.NameError)) {
        refuse("\" comes from " + earlier.File + " as well");
      }
    }
    one.Replaces = Find(all, one.Scheme.NameError) != nullptr;
    if (one.Replaces && !request.Replace) refuse("\" exists (--replace writes it)");
    read.push_back(std::move(one));
  }
  return read;
}

void Import(const SchemesRequest& request, store::Connection& connection, const Schemes& all,
            std::ostream& out) {
  const CSQLErrorHandler table;
  const std::vector<Imported> read = ReadFiles(request, all);
  store::Transaction transaction(connection);
  for (const Imported& one : read) {
    if (const ErrorHandlerScheme* const before = Find(all, one.Scheme.NameError)) {
      table.UpdateRecordKey(one.Scheme.NameError, before->NameError);
    } else {
      table.InsertRecord(one.Scheme.NameError);
    }
    table.UpdateRecord(one.Scheme);
  }
  transaction.Commit();
  for (const Imported& one : read) {
    out << (one.Replaces ? "replaced " : "added ") << vb::ToUtf8(one.Scheme.NameError) << '\n';
  }
}

/// An import writes the user's own database, which is made when there is none.
fs::path DataOf(const SchemesRequest& request) {
  if (request.Verb != SchemesVerb::Import) return SchemeData(request.Data);
  fs::path data = request.Data.empty() ? linux_host::DefaultDataDirectory() : request.Data;
  if (!fs::exists(PersonalFile(data))) {
    files::SystemFiles services;
    store::WriteStandardDatabases(PersonalFile(data).parent_path(), services);
  }
  return data;
}

void Carry(const SchemesRequest& request, std::ostream& out) {
  BatchPlatform services(4);
  const platform::ScopedPlatform scope(services);
  const auto connection = OpenPersonal(DataOf(request));
  const SharedDatabase shared(connection);
  const Schemes all = CSQLErrorHandler().GetAll();
  switch (request.Verb) {
    case SchemesVerb::List:
      for (const ErrorHandlerScheme& one : all) out << vb::ToUtf8(one.NameError) << '\n';
      break;
    case SchemesVerb::Show:
      out << WriteScheme(Named(all, request.Name));
      break;
    case SchemesVerb::Export:
      Export(request, all, out);
      break;
    case SchemesVerb::Import:
      Import(request, *connection, all, out);
      break;
  }
}

}  // namespace

std::string SchemeFileName(const std::string& name) {
  constexpr std::string_view Refused = "%/\\:*?\"<>|", Digits = "0123456789ABCDEF";
  std::string file;
  for (const char sign : name) {
    const auto unit = static_cast<unsigned char>(sign);
    if (unit < ' ' || Refused.find(sign) != std::string_view::npos ||
        (sign == '.' && file.empty())) {
      file += {'%', Digits[unit >> 4U], Digits[unit & 15U]};
    } else {
      file += sign;
    }
  }
  return file + ".scheme";
}

CLI::App* SchemesCommand::Declare(CLI::App& program) {
  auto* const schemes = program.add_subcommand("schemes", "Error-handler schemes as text files");
  schemes->require_subcommand(1);
  const auto add = [&](const char* name, const char* what, SchemesVerb verb) {
    auto* const command = schemes->add_subcommand(name, what);
    command->add_option("--data", Request.Data, "the program's directory")
        ->default_str("the user's, or the delivered schemes");
    command->callback([this, verb] { Request.Verb = verb; });
    return command;
  };
  add("list", "Name all schemes", SchemesVerb::List);
  add("show", "Print a scheme", SchemesVerb::Show)
      ->add_option("name", Request.Name, "the scheme")
      ->required();
  auto* const exported =
      add("export", "Write a scheme, or all, to a folder, one file each", SchemesVerb::Export);
  auto* const all = exported->add_flag("--all")->description("every scheme");
  // The words are NAME DIR, or DIR alone behind --all.
  const auto words = std::make_shared<std::vector<std::string>>();
  exported->add_option("words", *words, "NAME DIR, or DIR with --all")->expected(1, 2)->required();
  exported->callback([this, all, words] {
    Request.Verb = SchemesVerb::Export;
    if (words->size() != (all->count() > 0 ? 1U : 2U)) {
      throw CLI::ValidationError("export takes NAME DIR, or --all DIR");
    }
    Request.Folder = words->back();
    if (words->size() == 2) Request.Name = words->front();
  });
  auto* const import = add("import", "Read schemes from files, all or none", SchemesVerb::Import);
  import->add_option("files", Request.Files, "files that export wrote")->required();
  import->add_flag("--replace", Request.Replace, "also over schemes of the same name");
  return schemes;
}

int SchemesCommand::Run(const Streams& streams) {
  try {
    Carry(Request, streams.Out);
    return Done;
  } catch (...) {
    streams.Err << "tessel: " << vb::CurrentFailure().what() << '\n';
    return Failed;
  }
}

}  // namespace tessel::batch
