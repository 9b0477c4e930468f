#include "vb/Failure.h"

#include <new>
#include <utility>

#include "vb/ByteText.h"

namespace tessel::vb {
namespace {

StringView TextOf(RuntimeError number) {
  switch (number) {
    case InvalidCall:
      return u"Invalid procedure call or argument";
    case Overflow:
      return u"Overflow";
    case OutOfMemory:
      return u"Out of memory";
    case SubscriptOutOfRange:
      return u"Subscript out of range";
    case TypeMismatch:
      return u"Type mismatch";
    case FileNotFound:
      return u"File not found";
    case PathFileAccess:
      return u"Path/File access error";
    case ObjectNotSet:
      return u"Object variable or With block variable not set";
    case InternalError:
      break;
  }
  return u"Internal error";
}

}  // namespace

Failure::Failure(std::int32_t number, String description, String source)
    : number_(number),
      description_(std::move(description)),
      source_(std::move(source)),
      utf8_(ToBytes(description_)) {}

Failure RuntimeFailure(RuntimeError number) { return {number, String(TextOf(number)), u"Tessel"}; }

Failure CurrentFailure() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return RuntimeFailure(OutOfMemory);
  } catch (const std::exception& error) {
    return {InternalError, FromUtf8(error.what()), u"Tessel"};
  } catch (...) {
    return RuntimeFailure(InternalError);
  }
}

}  // namespace tessel::vb
