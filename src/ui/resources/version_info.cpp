#include "ui/resources/version_info.h"

namespace quorvel {

const char* const kFileVersion = QUORVEL_FILE_VERSION;

}  // namespace quorvel
