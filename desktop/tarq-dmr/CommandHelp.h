#ifndef TARQ_DMR_COMMAND_HELP_H_
#define TARQ_DMR_COMMAND_HELP_H_

// What --help says after the options.

inline constexpr const char* kProgramHelp =
    "Examples:\n"
    "  tarq-dmr demo\n"
    "  tarq-dmr check http://192.168.0.2:8200/23.mpg --metadata item.xml --region 1\n"
    "  tarq-dmr COMMAND --help\n"
    "  tarq-dmr help TOPIC\n\n";

// After the help of every command with --region.
inline constexpr const char* kRegionHelp =
    "The region is a set of bits, decimal or 0x..., signed 32 bits; the host sets it\n"
    "to say where the renderer is sold. It decides which media profiles are offered\n"
    "and which resources play; exactly 16 adds RealMedia. Default 0: only what every\n"
    "region has. See tarq-dmr help regions.\n\n";

// At the very end.
inline constexpr const char* kExitCodesHelp =
    "Exit codes: 0 accepted or done, 1 refused or failed, 2 wrong usage, unreadable\n"
    "file, unusable plug-in, or too few descriptors or memory to ask a server.";

inline constexpr const char* kInfoHelp =
    "Examples:\n"
    "  tarq-dmr info\n"
    "  tarq-dmr info --json\n\n";

inline constexpr const char* kSinkHelp =
    "Examples:\n"
    "  tarq-dmr sink --region 1\n"
    "  tarq-dmr sink --region 0x10 --raw\n\n";

inline constexpr const char* kCheckHelp =
    "Examples:\n"
    "  tarq-dmr check http://192.168.0.2:8200/23.mpg --metadata item.xml --region 1\n"
    "  tarq-dmr check http://192.168.0.2:8200/23.mpg --metadata - --json < item.xml\n"
    "  tarq-dmr check --batch items.ndjson --jobs 8 > results.ndjson\n"
    "  tarq-dmr check --batch items.ndjson --summary\n\n"
    "A batch line is {\"uri\":\"...\",\"metadata\":\"...\",\"region\":N}; metadata and region\n"
    "are optional. For each line there is one JSON line, in the order of the input:\n"
    "{\"code\":0,...what to play...} when accepted, {\"code\":N,\"message\":\"...\"} when\n"
    "refused; the code is -1 when the line is not valid input. \"id\" and keys that\n"
    "begin with \"x-\" are repeated as they stood at the end of the result line; null\n"
    "is the same as a missing key; of two equal keys the last counts. With --summary\n"
    "there are only the counts of the lines by result and by format.\n"
    "A batch that was read to its end exits with 0. When interrupted it ends with the\n"
    "last line that was checked in order, and with 130 (SIGINT) or 143 (SIGTERM).\n"
    "A job needs up to 6 descriptors; where ulimit -n leaves fewer, fewer jobs run.\n\n";

inline constexpr const char* kPlayHelp =
    "Examples:\n"
    "  tarq-dmr play http://192.168.0.2:8200/23.mp3 --metadata item.xml\n"
    "  tarq-dmr play http://192.168.0.2:8200/23.mp3 --player mpv\n"
    "  tarq-dmr play http://192.168.0.2:8200/23.mp3 --exec \"ffplay -autoexit {uri}\"\n"
    "  tarq-dmr play http://192.168.0.2:8200/23.mp3 --metadata item.xml \\\n"
    "    --next http://192.168.0.2:8200/24.mp3 --next-metadata next.xml\n"
    "  tarq-dmr play http://192.168.0.2:8200/23.mp3 --handler-jar my.jar \\\n"
    "    --handler my.Handler\n\n"
    "Needs a Java VM, 17 or newer: the one in JAVA_HOME, else that of the java on the\n"
    "PATH, else an installed one.\n"
    "--player mpv plays with the mpv on the PATH, which shows pictures in a window.\n"
    "It reads no configuration file (use --mpv-option) and is only given http and\n"
    "https URIs.\n\n"
    "The program of --exec does the playing, and the track is over when it ends. If\n"
    "it does not start, or ends with a status other than 0, play says so, plays\n"
    "nothing more and exits with 1. Quote an argument with blanks; {uri} is replaced;\n"
    "no shell is involved. It is only given http and https URIs. Without --exec\n"
    "nothing is heard: the position advances to the duration given in the metadata,\n"
    "and a track of unknown duration goes on until Ctrl-C.\n\n"
    "Ctrl-C, SIGTERM and SIGHUP stop the track, end the program and exit with 0. What\n"
    "has not ended after 2 seconds is killed; after a second signal, at once. If the\n"
    "handler hangs all the same, play exits with 128 + the number of the signal.\n\n"
    "A handler is a public class derived from com.orsa.tarq.dlna.TarqRendererHandler\n"
    "with a constructor without arguments. Its errors exit with 1. An exception that\n"
    "it throws is shown on standard error, once, and then dropped as on a device.\n"
    "When it has the methods int getCurrentTrack(), which counts from 1, and String\n"
    "getFailure(), play shows the change of track and why the handler failed.\n\n";

inline constexpr const char* kExplainHelp =
    "Examples:\n"
    "  tarq-dmr explain http://192.168.0.2:8200/23.mpg --metadata item.xml --region 1\n"
    "  tarq-dmr explain http://192.168.0.2:8200/23.mpg --metadata item.xml --probe\n"
    "  tarq-dmr explain --batch items.ndjson --html why.html > why.ndjson\n\n"
    "Takes the steps of a check and shows what each found: the candidates, their\n"
    "points, and what made each eligible or excluded it. No server is asked unless\n"
    "--probe is given. The last line is the verdict. A batch takes the lines of\n"
    "check --batch and writes one JSON line for each, or the counts of --summary.\n"
    "The page of --html needs no other file and no network.\n\n";

inline constexpr const char* kRendererHelp =
    "Examples:\n"
    "  tarq-dmr renderer --name \"Desk\" --region 1\n"
    "  tarq-dmr renderer --interface eth1 --player simulated --explain\n"
    "  tarq-dmr renderer --access ask --allow 192.168.0.7 --json > log.ndjson\n\n"
    "A UPnP media renderer that control points (phones, computers) find and play to:\n"
    "what they send is checked by the plug-in and played through its player. Shows\n"
    "each action, and why a resource plays or is refused, as it happens. Ends with\n"
    "Ctrl-C.\n\n";

inline constexpr const char* kServersHelp =
    "Examples:\n"
    "  tarq-dmr servers\n"
    "  tarq-dmr servers --interface eth1 --timeout 10 --json\n\n"
    "Asks the network and lists who answers in time: name, address, model, and the URL\n"
    "of the description. Exits with 0 also when none does.\n\n";

inline constexpr const char* kSurveyHelp =
    "Examples:\n"
    "  tarq-dmr survey http://192.168.0.2:8200/rootDesc.xml --region 1\n"
    "  tarq-dmr survey \"living room\" --regions 0,1,2,16 --probe\n"
    "  tarq-dmr survey nas --container 64 --limit 500 --ndjson items.ndjson\n\n"
    "Reads every container of a media server and checks each item, with the URL of\n"
    "its first res and its own DIDL-Lite. Shows what plays by kind and format, why\n"
    "the rest does not, what one change would let play, how the regions differ, and\n"
    "what was wrong with the server. Without --probe the server is not asked for any\n"
    "item, and what a check would ask for depends on the server.\n"
    "A line of --ndjson is {\"id\",\"title\",\"uri\",\"metadata\",\"region\",\"result\"} and a\n"
    "valid line of check --batch; result is what check --json prints, with the code\n"
    "null for what depends on the server.\n"
    "Exits with 0 when the server was read, with 1 when nothing of it could be read.\n"
    "When interrupted it shows what was done so far, and exits with 130 (SIGINT) or\n"
    "143 (SIGTERM).\n\n";

inline constexpr const char* kDemoHelp =
    "Example:\n"
    "  tarq-dmr demo --log debug\n\n"
    "Nothing leaves this computer. Exits with 1 when a step fails.\n\n";

inline constexpr const char* kHelpHelp =
    "Examples:\n"
    "  tarq-dmr help regions\n"
    "  tarq-dmr help check\n\n"
    "Without a topic it lists the topics. With a command it prints what the command\n"
    "prints with --help.\n\n";

#endif  // TARQ_DMR_COMMAND_HELP_H_
