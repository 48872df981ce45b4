// SPDX-FileCopyrightText: 2026 The KyMath authors
// SPDX-License-Identifier: Apache-2.0
//
// For the memory sanitizer, which sees only what is compiled with it: the templates of the standard
// library that are compiled into that library otherwise, strings and streams. Those in the program
// come first, even for the library itself.
#include <locale>
#include <sstream>
#include <string>

template class std::basic_string<char>;
template class std::basic_ios<char>;
template class std::basic_ostream<char>;
template class std::basic_stringbuf<char>;
template class std::basic_stringstream<char>;
template class std::basic_ostringstream<char>;
template class std::num_put<char>;
template std::ostream& std::__ostream_insert(std::ostream&, const char*, std::streamsize);

// The last byte of a message made in that library would look unset to strlen.
extern "C" const char* __msan_default_options() {
    return "intercept_strlen=0";
}
