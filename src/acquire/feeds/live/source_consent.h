// Terms that somebody has to agree to before a source is asked: a window asks once in an application folder,
// a call of the batch tool that names the source agrees by that.
#pragma once

#include <string>

#include "acquire/feeds/live/source_client.h"

namespace brantlow {

// The terms of the source in a sentence and the question.
std::string ConsentQuestion(const SourceDefinition& source);

// Why a source was not asked whose terms nobody agreed to.
std::string ConsentRefusal(const SourceDefinition& source);

// Whether the source may be asked. One whose terms have not been agreed to in this folder is put to the
// session's person; a No is not kept, so that the next use asks again.
bool MayBeAsked(SourceWorld& world, const SourceDefinition& source);

}  // namespace brantlow
