// SPDX-License-Identifier: GPL-3.0-or-later
// This computer's network library, loaded by the first connection: it brings thirty others along,
// which the start of the program would wait for. Its functions stand here under their own names and
// hand on to it. Where it is missing, there is no connection. They are weak, so that a test can be
// the network itself.
#include <curl/curl.h>
#include <dlfcn.h>

#include <cstdarg>

#undef curl_easy_getinfo
#undef curl_easy_setopt

namespace {

/// The library's own function of that name; null without the library.
template <typename Function>
Function* Own(const char* name, Function* /*type*/) {
  static void* const library = ::dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
  return library ? reinterpret_cast<Function*>(::dlsym(library, name)) : nullptr;
}

}  // namespace

/// Defines a function that hands on to the library's own, and answers `without` where there is
/// none.
#define HANDS_ON(result, name, parameters, arguments, without) \
  [[gnu::weak]] result name parameters {                       \
    static auto* const own = Own(#name, &name);                \
    return own ? own arguments : without;                      \
  }

extern "C" {

HANDS_ON(CURLcode, curl_global_init, (long flags), (flags), CURLE_FAILED_INIT)

HANDS_ON(CURL*, curl_easy_init, (), (), nullptr)
HANDS_ON(void, curl_easy_cleanup, (CURL * curl), (curl), void())
HANDS_ON(CURLcode, curl_easy_perform, (CURL * curl), (curl), CURLE_FAILED_INIT)
HANDS_ON(CURLcode, curl_easy_send, (CURL * curl, const void* bytes, size_t size, size_t* sent),
         (curl, bytes, size, sent), CURLE_FAILED_INIT)
HANDS_ON(CURLcode, curl_easy_recv, (CURL * curl, void* buffer, size_t size, size_t* received),
         (curl, buffer, size, received), CURLE_FAILED_INIT)
HANDS_ON(const char*, curl_easy_strerror, (CURLcode code), (code),
         "this computer's network library is missing")

HANDS_ON(CURLM*, curl_multi_init, (), (), nullptr)
HANDS_ON(CURLMcode, curl_multi_cleanup, (CURLM * multi), (multi), CURLM_BAD_HANDLE)
HANDS_ON(CURLMcode, curl_multi_add_handle, (CURLM * multi, CURL* curl), (multi, curl),
         CURLM_BAD_HANDLE)
HANDS_ON(CURLMcode, curl_multi_remove_handle, (CURLM * multi, CURL* curl), (multi, curl),
         CURLM_BAD_HANDLE)
HANDS_ON(CURLMcode, curl_multi_perform, (CURLM * multi, int* running), (multi, running),
         CURLM_BAD_HANDLE)
HANDS_ON(CURLMcode, curl_multi_poll,
         (CURLM * multi, curl_waitfd* others, unsigned count, int patience, int* ready),
         (multi, others, count, patience, ready), CURLM_BAD_HANDLE)
HANDS_ON(CURLMsg*, curl_multi_info_read, (CURLM * multi, int* left), (multi, left), nullptr)

HANDS_ON(curl_slist*, curl_slist_append, (curl_slist * list, const char* text), (list, text),
         nullptr)
HANDS_ON(void, curl_slist_free_all, (curl_slist * list), (list), void())
HANDS_ON(int, curl_strnequal, (const char* one, const char* other, size_t length),
         (one, other, length), 0)

/// What an option is given is of one of two sizes, by the option's number.
[[gnu::weak]] CURLcode curl_easy_setopt(CURL* curl, CURLoption option, ...) {
  static auto* const own = Own("curl_easy_setopt", &curl_easy_setopt);
  if (!own) return CURLE_FAILED_INIT;
  std::va_list values;
  va_start(values, option);
  const bool isOffset = option >= CURLOPTTYPE_OFF_T && option < CURLOPTTYPE_BLOB;
  const CURLcode code = isOffset ? own(curl, option, va_arg(values, curl_off_t))
                                 : own(curl, option, va_arg(values, void*));
  va_end(values);
  return code;
}

[[gnu::weak]] CURLcode curl_easy_getinfo(CURL* curl, CURLINFO info, ...) {
  static auto* const own = Own("curl_easy_getinfo", &curl_easy_getinfo);
  if (!own) return CURLE_FAILED_INIT;
  std::va_list answers;
  va_start(answers, info);
  const CURLcode code = own(curl, info, va_arg(answers, void*));
  va_end(answers);
  return code;
}

}  // extern "C"
