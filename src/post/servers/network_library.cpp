// SPDX-License-Identifier: GPL-3.0-or-later
// This computer's network library, loaded by the first connection: it brings thirty others along,
// which the start of the program would wait for. Its functions stand here under their own names and
// hand on to it. Where it is missing, there is no connection. They are weak, so that a test can be
// the network itself.
#include <curl/curl.h>
#include <dlfcn.h>

#include <cstdarg>
#include <type_traits>

// Checks of what an option is given, which hide the functions.
#undef curl_easy_getinfo
#undef curl_easy_setopt

namespace {

/// The library's own function of that name; null without the library.
template <typename Function>
Function* Own(const char* name, Function* /*type*/) {
  static void* const library = ::dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
  return library ? reinterpret_cast<Function*>(::dlsym(library, name)) : nullptr;
}

/// The answer of the library's own function; `without` it.
template <typename Result, typename... Arguments>
Result HandOn(const char* name, Result (*type)(Arguments...), std::type_identity_t<Result> without,
              std::type_identity_t<Arguments>... arguments) {
  auto* const own = Own(name, type);
  return own ? own(arguments...) : without;
}

template <typename... Arguments>
void HandOn(const char* name, void (*type)(Arguments...),
            std::type_identity_t<Arguments>... arguments) {
  if (auto* const own = Own(name, type)) own(arguments...);
}

/// An option's value, or the place of an answer.
template <typename Value, typename Function, typename Which>
CURLcode HandOnNext(std::va_list& values, Function* own, CURL* curl, Which which) {
  return own(curl, which, va_arg(values, Value));
}

}  // namespace

extern "C" {

[[gnu::weak]] CURLcode curl_global_init(long flags) {
  return HandOn("curl_global_init", &curl_global_init, CURLE_FAILED_INIT, flags);
}

[[gnu::weak]] CURL* curl_easy_init() { return HandOn("curl_easy_init", &curl_easy_init, nullptr); }

[[gnu::weak]] void curl_easy_cleanup(CURL* curl) {
  HandOn("curl_easy_cleanup", &curl_easy_cleanup, curl);
}

[[gnu::weak]] CURLcode curl_easy_perform(CURL* curl) {
  return HandOn("curl_easy_perform", &curl_easy_perform, CURLE_FAILED_INIT, curl);
}

[[gnu::weak]] CURLcode curl_easy_send(CURL* curl, const void* bytes, size_t size, size_t* sent) {
  return HandOn("curl_easy_send", &curl_easy_send, CURLE_FAILED_INIT, curl, bytes, size, sent);
}

[[gnu::weak]] CURLcode curl_easy_recv(CURL* curl, void* buffer, size_t size, size_t* received) {
  return HandOn("curl_easy_recv", &curl_easy_recv, CURLE_FAILED_INIT, curl, buffer, size, received);
}

[[gnu::weak]] const char* curl_easy_strerror(CURLcode code) {
  return HandOn("curl_easy_strerror", &curl_easy_strerror,
                "this computer's network library is missing", code);
}

[[gnu::weak]] CURLM* curl_multi_init() {
  return HandOn("curl_multi_init", &curl_multi_init, nullptr);
}

[[gnu::weak]] CURLMcode curl_multi_cleanup(CURLM* multi) {
  return HandOn("curl_multi_cleanup", &curl_multi_cleanup, CURLM_BAD_HANDLE, multi);
}

[[gnu::weak]] CURLMcode curl_multi_add_handle(CURLM* multi, CURL* curl) {
  return HandOn("curl_multi_add_handle", &curl_multi_add_handle, CURLM_BAD_HANDLE, multi, curl);
}

[[gnu::weak]] CURLMcode curl_multi_remove_handle(CURLM* multi, CURL* curl) {
  return HandOn("curl_multi_remove_handle", &curl_multi_remove_handle, CURLM_BAD_HANDLE, multi,
                curl);
}

[[gnu::weak]] CURLMcode curl_multi_perform(CURLM* multi, int* running) {
  return HandOn("curl_multi_perform", &curl_multi_perform, CURLM_BAD_HANDLE, multi, running);
}

[[gnu::weak]] CURLMcode curl_multi_poll(CURLM* multi, curl_waitfd* others, unsigned count,
                                        int patience, int* ready) {
  return HandOn("curl_multi_poll", &curl_multi_poll, CURLM_BAD_HANDLE, multi, others, count,
                patience, ready);
}

[[gnu::weak]] CURLMsg* curl_multi_info_read(CURLM* multi, int* left) {
  return HandOn("curl_multi_info_read", &curl_multi_info_read, nullptr, multi, left);
}

[[gnu::weak]] curl_slist* curl_slist_append(curl_slist* list, const char* text) {
  return HandOn("curl_slist_append", &curl_slist_append, nullptr, list, text);
}

[[gnu::weak]] void curl_slist_free_all(curl_slist* list) {
  HandOn("curl_slist_free_all", &curl_slist_free_all, list);
}

[[gnu::weak]] int curl_strnequal(const char* one, const char* other, size_t length) {
  return HandOn("curl_strnequal", &curl_strnequal, 0, one, other, length);
}

// What an option is called is an enumeration, which travels as the whole number that it is.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wvarargs"

[[gnu::weak]] CURLcode curl_easy_setopt(CURL* curl, CURLoption option, ...) {
  auto* const own = Own("curl_easy_setopt", &curl_easy_setopt);
  if (!own) return CURLE_FAILED_INIT;
  std::va_list values;
  va_start(values, option);
  // What it is given is of one of two sizes, by the option's number.
  const bool isOffset = option >= CURLOPTTYPE_OFF_T && option < CURLOPTTYPE_BLOB;
  const CURLcode code = isOffset ? HandOnNext<curl_off_t>(values, own, curl, option)
                                 : HandOnNext<void*>(values, own, curl, option);
  va_end(values);
  return code;
}

[[gnu::weak]] CURLcode curl_easy_getinfo(CURL* curl, CURLINFO info, ...) {
  auto* const own = Own("curl_easy_getinfo", &curl_easy_getinfo);
  if (!own) return CURLE_FAILED_INIT;
  std::va_list answers;
  va_start(answers, info);
  const CURLcode code = HandOnNext<void*>(answers, own, curl, info);
  va_end(answers);
  return code;
}

#pragma GCC diagnostic pop

}  // extern "C"
