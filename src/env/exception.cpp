#include <utility>

#include "klo_cpp.h"

KLOException::KLOException(int code) : code_(code) {}

KLOException::KLOException(std::string message, int code)
    : message_(std::move(message)), code_(code) {}

std::string KLOException::getMessage() const { return message_; }

int KLOException::getErrorCode() const { return code_; }
