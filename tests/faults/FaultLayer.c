#define _GNU_SOURCE
#include "FaultLayer.h"

#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

enum { most_handles = 1024 };

static struct {
  const char* folder; /* null: disarmed */
  long at, seen;
  int kind, error;
  long room; /* for writes; -1: no limit */
  void (*meanwhile)(void*);
  void* context;
  char calls[4096];           /* names of the calls seen, a blank behind each */
  const char* wrong;          /* name of the call that went wrong */
  char handles[most_handles]; /* those under the folder: 1 a file, 2 a folder */
} layer;

void arm_faults(const char* folder, long call, int kind, int error, void (*meanwhile)(void*), void* context) {
  memset(&layer, 0, sizeof layer);
  layer.at = call;
  layer.kind = kind;
  layer.error = error;
  layer.meanwhile = meanwhile;
  layer.context = context;
  layer.room = -1;
  layer.folder = folder;
}

void arm_full_disk(const char* folder, long room) {
  arm_faults(folder, 0, fault_error, 0, NULL, NULL);
  layer.room = room;
}

long disarm_faults(void) {
  layer.folder = NULL;
  return layer.seen;
}

__attribute__((constructor)) static void arm_from_environment(void) {
  static const char* const names[] = {"error", "all-errors", "short",    "nothing",
                                      "kill",  "kill-after", "meanwhile"};
  const char* const folder = getenv("UNITLIB_FAULT_FOLDER");
  const char* const fault = getenv("UNITLIB_FAULT");
  char name[32];
  long at = 0;
  int error = 0;
  if (!folder || !fault || sscanf(fault, "%ld %31s %d", &at, name, &error) < 2) return;
  for (int kind = 0; kind < fault_meanwhile; ++kind)
    if (strcmp(name, names[kind]) == 0) arm_faults(folder, at, kind, error, NULL, NULL);
}

static int is_watched_path(const char* path) {
  return layer.folder && path && strncmp(path, layer.folder, strlen(layer.folder)) == 0;
}

static int is_watched_handle(int handle) {
  return layer.folder && handle >= 0 && handle < most_handles && layer.handles[handle];
}

const char* calls_seen(void) {
  return layer.calls;
}

const char* call_gone_wrong(void) {
  return layer.wrong ? layer.wrong : "";
}

/* Counts a call. 0: it is to be made. */
static int goes_wrong(const char* name) {
  const long call = ++layer.seen;
  if (strlen(layer.calls) + strlen(name) + 2 < sizeof layer.calls) strcat(strcat(layer.calls, name), " ");
  if (call == layer.at) layer.wrong = name;
  if (call == layer.at && layer.kind == fault_kill) raise(SIGKILL);
  if (call == layer.at && layer.kind == fault_meanwhile) {
    const char* const folder = layer.folder;
    layer.folder = NULL;
    layer.meanwhile(layer.context);
    layer.folder = folder;
  }
  if ((call == layer.at && layer.kind == fault_error) ||
      (call >= layer.at && layer.kind == fault_all_errors)) {
    errno = layer.error;
    return 1;
  }
  return 0;
}

static void made(void) {
  if (layer.folder && layer.seen == layer.at && layer.kind == fault_kill_after) raise(SIGKILL);
}

/* The system's own function. */
#define REAL(name) ((__typeof__(&name))real(#name))
static void* real(const char* name) {
  void* const found = dlsym(RTLD_NEXT, name);
  if (!found) abort();
  return found;
}

#define WATCHED(result_type, name, watched, parameters, arguments)                                           \
  result_type name parameters {                                                                              \
    result_type result;                                                                                      \
    if (!(watched)) return REAL(name) arguments;                                                             \
    if (goes_wrong(#name)) return -1;                                                                        \
    result = REAL(name) arguments;                                                                           \
    {                                                                                                        \
      const int kept = errno;                                                                                \
      made();                                                                                                \
      errno = kept;                                                                                          \
    }                                                                                                        \
    return result;                                                                                           \
  }

static const char* name_of_open(int flags) {
  return flags & O_CREAT ? "create" : flags & O_DIRECTORY ? "open_folder" : "open";
}

static int opened(int flags, int handle) {
  if (handle >= 0 && handle < most_handles) layer.handles[handle] = flags & O_DIRECTORY ? 2 : 1;
  made();
  return handle;
}

#define OPEN(name)                                                                                           \
  int name(const char* path, int flags, ...) {                                                               \
    va_list rest;                                                                                            \
    mode_t mode;                                                                                             \
    va_start(rest, flags);                                                                                   \
    mode = va_arg(rest, mode_t);                                                                             \
    va_end(rest);                                                                                            \
    if (!is_watched_path(path)) return REAL(name)(path, flags, mode);                                        \
    return goes_wrong(name_of_open(flags)) ? -1 : opened(flags, REAL(name)(path, flags, mode));              \
  }
OPEN(open)
OPEN(open64)

#define OPENAT(name)                                                                                         \
  int name(int folder, const char* path, int flags, ...) {                                                   \
    va_list rest;                                                                                            \
    mode_t mode;                                                                                             \
    va_start(rest, flags);                                                                                   \
    mode = va_arg(rest, mode_t);                                                                             \
    va_end(rest);                                                                                            \
    if (!is_watched_path(path)) return REAL(name)(folder, path, flags, mode);                                \
    return goes_wrong(name_of_open(flags)) ? -1 : opened(flags, REAL(name)(folder, path, flags, mode));      \
  }
OPENAT(openat)
OPENAT(openat64)

/* A handle is gone even when closing it gives an error. */
int close(int handle) {
  const int watched = is_watched_handle(handle);
  const int wrong = watched && goes_wrong("close");
  const int error = errno;
  int result;
  if (handle >= 0 && handle < most_handles) layer.handles[handle] = 0;
  result = REAL(close)(handle);
  if (watched) made();
  if (wrong) errno = error;
  return wrong ? -1 : result;
}

ssize_t write(int handle, const void* data, size_t size) {
  ssize_t result;
  if (!is_watched_handle(handle)) return REAL(write)(handle, data, size);
  if (goes_wrong("write")) return -1;
  if (layer.kind == fault_nothing && layer.seen == layer.at) return 0;
  if (layer.kind == fault_short && layer.seen >= layer.at && size > 1) size /= 2;
  if (layer.room >= 0 && size > (size_t)layer.room) size = (size_t)layer.room;
  if (layer.room >= 0 && size == 0) {
    errno = ENOSPC;
    return -1;
  }
  result = REAL(write)(handle, data, size);
  if (layer.room >= 0 && result > 0) layer.room -= result;
  made();
  return result;
}

WATCHED(ssize_t, read, is_watched_handle(handle), (int handle, void* data, size_t size), (handle, data, size))
int fsync(int handle) {
  int result;
  if (!is_watched_handle(handle)) return REAL(fsync)(handle);
  if (goes_wrong(layer.handles[handle] == 2 ? "fsync_folder" : "fsync")) return -1;
  result = REAL(fsync)(handle);
  made();
  return result;
}
WATCHED(int, fchmod, is_watched_handle(handle), (int handle, mode_t mode), (handle, mode))
WATCHED(int, fchown, is_watched_handle(handle), (int handle, uid_t user, gid_t group), (handle, user, group))
WATCHED(int, flock, is_watched_handle(handle), (int handle, int operation), (handle, operation))
WATCHED(int, fstat, is_watched_handle(handle), (int handle, struct stat* info), (handle, info))
WATCHED(int, stat, is_watched_path(path), (const char* restrict path, struct stat* restrict info),
        (path, info))
WATCHED(int, lstat, is_watched_path(path), (const char* restrict path, struct stat* restrict info),
        (path, info))
WATCHED(int, rename, is_watched_path(from), (const char* from, const char* to), (from, to))
WATCHED(int, unlink, is_watched_path(path), (const char* path), (path))
WATCHED(int, mkdir, is_watched_path(path), (const char* path, mode_t mode), (path, mode))
WATCHED(ssize_t, readlink, is_watched_path(path),
        (const char* restrict path, char* restrict text, size_t size), (path, text, size))
WATCHED(int, faccessat, is_watched_path(path), (int folder, const char* path, int mode, int flags),
        (folder, path, mode, flags))
