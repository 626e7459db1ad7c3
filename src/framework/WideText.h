// UTF-8 inside the library, UTF-16 at the system boundary.
#pragma once

#include <string>

std::wstring Widen(const std::string& utf8);
std::string NarrowToUtf8(const std::wstring& wide);
