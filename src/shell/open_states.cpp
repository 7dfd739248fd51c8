#include "shell/open_states.h"

namespace brantlow {

OpenStates StateOf(FileKind kind) {
    switch (kind) {
        case FileKind::Ddq:
            return kWithDdq;
        case FileKind::Db:
            return kWithDb;
        case FileKind::Dbe:
            return kWithDbe;
        case FileKind::Efq:
            return kWithEfq;
        case FileKind::None:
            break;
    }
    return kWithOther;
}

}  // namespace brantlow
