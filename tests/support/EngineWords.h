// The statement words that the formatter's engine looks up a rule for.
#pragma once

#include "vb/Text.h"

namespace tessel::test {

inline constexpr StringView EngineWords[] = {u"FUNCTION",
                                             u"SUB",
                                             u"PROPERTY",
                                             u"WITH",
                                             u"FOR",
                                             u"DO",
                                             u"IF",
                                             u"ELSE",
                                             u"ELSEIF",
                                             u"CASE",
                                             u"NEXT",
                                             u"LOOP",
                                             u"END FUNCTION",
                                             u"END SUB",
                                             u"END PROPERTY",
                                             u"END IF",
                                             u"END WITH",
                                             u"END SELECT",
                                             u"SELECT CASE",
                                             u"PRIVATE FUNCTION",
                                             u"PUBLIC FUNCTION",
                                             u"FRIEND FUNCTION",
                                             u"STATIC FUNCTION",
                                             u"PRIVATE SUB",
                                             u"PUBLIC SUB",
                                             u"FRIEND SUB",
                                             u"STATIC SUB",
                                             u"PRIVATE STATIC",
                                             u"PUBLIC STATIC",
                                             u"FRIEND STATIC",
                                             u"PRIVATE PROPERTY",
                                             u"PUBLIC PROPERTY",
                                             u"FRIEND PROPERTY",
                                             u"STATIC PROPERTY"};

}  // namespace tessel::test
