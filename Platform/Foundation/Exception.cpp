#include "Platform/Foundation/Exception.h"

#include "Platform/Foundation/Failure.h"

namespace platform {

void noteException(const Exception& exception) {
    noteFailure(exception.reason());
}

}  // namespace platform
