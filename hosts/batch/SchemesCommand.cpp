#include "hosts/batch/SchemesCommand.h"

#include <algorithm>
#include <ostream>

#include "errorhandlers/CSQLErrorHandler.h"
#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/PersonalDatabase.h"
#include "hosts/batch/SchemeText.h"
#include "hosts/linux/LinuxApp.h"
#include "hosts/workspace/AtomicFile.h"
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
  std::vector<workspace::FileContent> files;
  const Schemes chosen = request.Name.empty() ? all : Schemes{Named(all, request.Name)};
  for (const ErrorHandlerScheme& scheme : chosen) {
    files.push_back(
        {request.Folder / SchemeFileName(vb::ToUtf8(scheme.NameError)), WriteScheme(scheme)});
  }
  fs::create_directories(request.Folder);
  workspace::WriteFiles(files);
  for (const auto& file : files) out << file.Path.string() << '\n';
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
    Imported one{file, ReadScheme(workspace::ReadFile(file), file)};
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
    store::WriteStandardDatabases(PersonalFile(data).parent_path());
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

int RunSchemes(const SchemesRequest& request, std::ostream& out, std::ostream& err) {
  try {
    Carry(request, out);
    return 0;
  } catch (...) {
    err << "tessel: " << vb::CurrentFailure().what() << '\n';
    return 2;
  }
}

}  // namespace tessel::batch
