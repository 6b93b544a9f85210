#pragma once

#include "core/Error.h"

#include <QStringList>

#include <cstdio>
#include <initializer_list>
#include <span>

namespace nubo::cli {

// Exit codes of every command.
enum Exit { success = 0, failure = 1, badUsage = 2 };

// Whether the arguments name a command that runs without the tray
// application (help, version and the headless subcommands).
bool isHeadless(const QStringList& arguments);

// Whether a headless command may draw text (and so needs fonts).
bool needsFonts(const QStringList& arguments);
// Whether the command needs the window system's screens.
bool needsScreens(const QStringList& arguments);

// A command of the command line: its first word and what runs it (given
// the words after it). Each program lists the commands it links.
struct Command {
    const char* name;
    int (*run)(const QStringList& arguments);
};

using CommandTables = std::initializer_list<std::span<const Command>>;

// Runs a headless command of `tables` (or help, or the version); arguments
// exclude the program name.
int run(const QStringList& arguments, CommandTables tables);
// What every program of the suite does first: names the application
// (settings folder, version), turns on every debug line of ours when
// NUBOSHOT_DEBUG is set, and lets writes past the file size limit fail
// with EFBIG, reported and cleaned up after, instead of the signal killing
// the process with half-written staging files left behind.
void prepareProcess();
// A command-line program's whole run: the fitting Qt application (a core
// one unless the command draws text or needs the window system's screens),
// then the command.
int runHeadless(int argc, char** argv, CommandTables tables);
// The command that starts this program, as users run it (the small
// `nuboshot` in front of it, when it started this one).
QString programPath();

// Output helpers: one line each, UTF-8.
void print(const QString& text, std::FILE* stream = stdout);
int fail(const QString& message);
int usage(const QString& message, const QString& helpCommand = {});
// The two lines of a usage error, as usage() prints them.
QString usageText(const QString& message, const QString& helpCommand = {});
// One line for an engine error; archive errors name their case and detail.
int failWith(const Error& error);
// That line's text, without "nuboshot: ".
QString failureText(const Error& error);

} // namespace nubo::cli
