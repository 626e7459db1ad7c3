// UTF-8 inside the library, UTF-16 at the system boundary, and the system's
// ANSI code page where an older interface still speaks it.
#pragma once

#include <string>

std::wstring Widen(const std::string& utf8);
std::string NarrowToUtf8(const std::wstring& wide);
std::wstring WidenAnsi(const std::string& ansi);
std::string NarrowToAnsi(const std::wstring& wide);
