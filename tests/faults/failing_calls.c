// Loaded before the C library, makes one of a program's calls to the system fail. Calls count from
// 1, and only those on files below the folder FAULTS_FOLDER (an absolute path; relative paths are
// taken to lie below it).
//
// FAULTS_HOW  log        nothing fails; the names of the calls go to the file FAULTS_LOG
//             fail N E   the Nth call fails with the error number E
//             gone N E   … and all calls after it do
//             short N    the Nth call, if it reads or writes, does half of it
//             kill N     the process is killed at the Nth call, in the middle of it if it writes

#define _GNU_SOURCE
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

typedef void (*Function)(void);

static Function next(const char* name) {
  void* symbol = dlsym(RTLD_NEXT, name);
  Function function = NULL;
  memcpy(&function, &symbol, sizeof function);
  return function;
}
#define NEXT(name) ((__typeof__(&name))next(#name))

enum { MOST_FILES = 1024 };
static bool watched[MOST_FILES];

static bool below(const char* path) {
  const char* folder = getenv("FAULTS_FOLDER");
  return folder != NULL && (*path != '/' || strncmp(path, folder, strlen(folder)) == 0);
}

static bool isWatched(int file) {
  return file >= 0 && file < MOST_FILES && watched[file];
}

static int watch(int file) {
  if (file >= 0 && file < MOST_FILES) watched[file] = true;
  return file;
}

static void logCall(const char* name) {
  const char* path = getenv("FAULTS_LOG");
  FILE* log = path != NULL ? fopen(path, "a") : NULL;
  if (log == NULL) abort();
  fprintf(log, "%s\n", name);
  fclose(log);
}

enum Fate { PASSES, FAILS, HALF, KILLED };

/// Counts a call and tells what becomes of it; sets errno for one that fails.
static enum Fate fate(const char* name) {
  static int count = 0;
  static int at = 0;
  static int error = 0;
  static char how[8];
  if (count++ == 0) sscanf(getenv("FAULTS_HOW"), "%7s %d %d", how, &at, &error);
  if (strcmp(how, "log") == 0) logCall(name);
  if (count < at || (count > at && strcmp(how, "gone") != 0)) return PASSES;
  if (strcmp(how, "short") == 0) return HALF;
  if (strcmp(how, "kill") == 0) return KILLED;
  errno = error;
  return FAILS;
}

/// Of calls that cannot be done by halves.
static bool fails(bool counts, const char* name) {
  const enum Fate its = counts ? fate(name) : PASSES;
  if (its == KILLED) raise(SIGKILL);
  return its == FAILS;
}

#define WRAP(type, name, parameters, counts, failure, arguments) \
  type name parameters {                                         \
    if (fails(counts, #name)) return failure;                    \
    return NEXT(name) arguments;                                 \
  }

WRAP(int, stat, (const char* path, struct stat* state), below(path), -1, (path, state))
WRAP(int, fstat, (int file, struct stat* state), isWatched(file), -1, (file, state))
WRAP(int, fstatat, (int folder, const char* path, struct stat* state, int how), isWatched(folder),
     -1, (folder, path, state, how))
WRAP(int, faccessat, (int folder, const char* path, int mode, int how), below(path), -1,
     (folder, path, mode, how))
WRAP(ssize_t, readlink, (const char* path, char* target, size_t size), below(path), -1,
     (path, target, size))
WRAP(int, mkdir, (const char* path, mode_t mode), below(path), -1, (path, mode))
WRAP(int, rename, (const char* from, const char* to), below(from), -1, (from, to))
WRAP(int, unlink, (const char* path), below(path), -1, (path))
WRAP(int, fchown, (int file, uid_t user, gid_t group), isWatched(file), -1, (file, user, group))
WRAP(int, fchmod, (int file, mode_t mode), isWatched(file), -1, (file, mode))
WRAP(int, flock, (int file, int how), isWatched(file), -1, (file, how))
WRAP(ssize_t, getxattr, (const char* path, const char* name, void* value, size_t size), below(path),
     -1, (path, name, value, size))
WRAP(ssize_t, listxattr, (const char* path, char* names, size_t size), below(path), -1,
     (path, names, size))
WRAP(int, fremovexattr, (int file, const char* name), isWatched(file), -1, (file, name))
WRAP(struct dirent*, readdir, (DIR * folder), isWatched(dirfd(folder)), NULL, (folder))

DIR* opendir(const char* path) {
  const bool counts = below(path);
  if (fails(counts, "opendir")) return NULL;
  DIR* folder = NEXT(opendir)(path);
  if (counts && folder != NULL) watch(dirfd(folder));
  return folder;
}

int closedir(DIR* folder) {
  const int file = dirfd(folder);
  if (isWatched(file)) watched[file] = false;
  return NEXT(closedir)(folder);
}

int open(const char* path, int how, ...) {
  va_list rest;
  va_start(rest, how);
  const mode_t mode = (how & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  const bool counts = below(path);
  if (fails(counts, (how & O_ACCMODE) == O_RDONLY ? "open" : "open to write")) return -1;
  const int file = NEXT(open)(path, how, mode);
  return counts ? watch(file) : file;
}

/// Does not sync, which would take most of the time.
int fsync(int file) {
  return fails(isWatched(file), "fsync") ? -1 : 0;
}

/// The file is closed even when that fails.
int close(int file) {
  const bool failed = fails(isWatched(file), "close");
  const int error = errno;
  if (isWatched(file)) watched[file] = false;
  const int result = NEXT(close)(file);
  if (failed) errno = error;
  return failed ? -1 : result;
}

ssize_t read(int file, void* bytes, size_t size) {
  const enum Fate its = isWatched(file) ? fate("read") : PASSES;
  if (its == KILLED) raise(SIGKILL);
  return its == FAILS ? -1 : NEXT(read)(file, bytes, its == HALF ? (size + 1) / 2 : size);
}

ssize_t write(int file, const void* bytes, size_t size) {
  const enum Fate its = isWatched(file) ? fate("write") : PASSES;
  if (its == FAILS) return -1;
  const ssize_t written = NEXT(write)(file, bytes, its == PASSES ? size : (size + 1) / 2);
  if (its == KILLED) raise(SIGKILL);
  return written;
}
