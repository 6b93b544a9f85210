// The lean command-line programs (nuboshot-stills, nuboshot-media,
// nuboshot-upload): one file, built once for each table of commands.
#include "shell/CommandTables.h"

int main(int argc, char** argv)
{
    return nubo::cli::runHeadless(argc, argv, {nubo::cli::NUBOSHOT_COMMANDS});
}
