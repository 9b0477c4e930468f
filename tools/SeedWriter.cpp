// Makes the statements that fill the starter library out of the folder of its records, as a header
// of the program.
//
//     SeedWriter FOLDER HEADER

#include <fstream>
#include <iostream>
#include <string>

#include "snippets/SnippetFiles.h"
#include "vb/Failure.h"

namespace {

using namespace tessel;

constexpr std::string_view Digits = "0123456789abcdef";

/// A text of SQL; one with a NUL, which would end the statement, by its bytes.
std::string Quoted(const String& text) {
  if (text.empty()) return "NULL";
  const std::string bytes = vb::ToUtf8(text);
  std::string out;
  if (bytes.find('\0') == std::string::npos) {
    out = "'";
    for (const char sign : bytes) out += sign == '\'' ? "''" : std::string(1, sign);
    return out + "'";
  }
  out = "CAST(x'";
  for (const char sign : bytes) {
    out += Digits[static_cast<unsigned char>(sign) >> 4U];
    out += Digits[static_cast<unsigned char>(sign) & 15U];
  }
  return out + "' AS TEXT)";
}

/// Numbers the nodes in the order of the tree; the top is number 1.
class Statements {
 public:
  explicit Statements(const std::vector<SnippetFileNode>& nodes) {
    Children(nodes);
    tree_ += "(1, 'root', 1, " + std::to_string(++number_) + ", 1);\n";
  }
  [[nodiscard]] std::string Text() const {
    return "DELETE FROM Tree;\nUPDATE NameMDB SET Name = 'VB Code';\n" + tree_ + list_;
  }

 private:
  void Children(const std::vector<SnippetFileNode>& nodes) {
    for (const SnippetFileNode& node : nodes) {
      const std::string id = std::to_string(++id_);
      const std::string left = std::to_string(++number_);
      if (node.Record) {
        Row(id, node.Record->Fragment);
      } else {
        Children(node.Children);
      }
      tree_ += "(" + id + ", " + Quoted(node.Name) + ", " + left + ", " +
               std::to_string(++number_) + ", " + (node.Record ? "0" : "1") + "),\n";
    }
  }
  void Row(const std::string& id, const ListFragment& one) {
    list_ +=
        "INSERT INTO List (Id, Text, TitleObj, TextObj, CompObj, NameObj, ClassObj, "
        "TextUserNotes) VALUES (" +
        id;
    for (const String* const text : {&one.Text, &one.TitleObj, &one.TextObj, &one.CompObj,
                                     &one.NameObj, &one.ClassObj, &one.TextUserNotes}) {
      list_ += ", " + Quoted(*text);
    }
    list_ += ");\n";
  }

  std::string tree_ = "INSERT INTO Tree (ID, Name, lft, rgt, Root) VALUES\n", list_;
  int id_ = 1, number_ = 1;
};

/// The text as a literal, a line of it on each line.
std::string Literal(const std::string& text) {
  std::string out = "    \"";
  for (const char sign : text) {
    const auto unit = static_cast<unsigned char>(sign);
    if (sign == '\n') {
      out += "\\n\"\n    \"";
    } else if (sign == '"' || sign == '\\') {
      out += std::string("\\") + sign;
    } else if (unit < ' ' || unit > '~') {
      out += '\\';
      for (const unsigned shift : {6U, 3U, 0U}) out += Digits[unit >> shift & 7U];
    } else {
      out += sign;
    }
  }
  return out + "\"";
}

}  // namespace

int main(int count, char** words) {
  if (count != 3) {
    std::cerr << "usage: SeedWriter FOLDER HEADER\n";
    return 2;
  }
  try {
    const std::string text = Statements(ReadSnippetFiles(words[1])).Text();
    std::ofstream out(words[2], std::ios::binary);
    out << "// Generated from the records of the starter library.\n#pragma once\n\n"
           "#include <string_view>\n\nnamespace tessel::store::seed {\n"
           "inline constexpr std::string_view starter_sql{\n"
        << Literal(text) << ",\n    " << text.size() << "};\n}  // namespace tessel::store::seed\n";
    out.close();
    if (!out) throw vb::Failure(vb::InvalidCall, u"the header can't be written", u"SeedWriter");
    return 0;
  } catch (...) {
    std::cerr << "SeedWriter: " << vb::CurrentFailure().what() << '\n';
    return 1;
  }
}
