#include <tools/tlx/commands/Commands.h>

#include <tools/tlx/program/Command.h>

const QList<SCommand>& commands()
{
    static const QList<SCommand> table{
        {"start", "[KEY=VALUE]...", "Walks the road of one start of a tool and shows every result.",
         "tlx start drvadr=3 lang=de port=0x1F40 --unit UNIT_U16=0x1F", addStartOptions, runStart},
        {"value", "TYPE [TEXT]", "Parses a text as a value type and shows the value in all its forms.",
         "tlx value U16 0x1F", nullptr, runValue},
        {"number", "TEXT", "Shows a number under a format descriptor, and reads a text under it.",
         "tlx number --notation hex --width 8 0x1F40", addNumberOptions, runNumber},
        {"unit", "[CODE|NAME]", "Shows the catalogue of units, or one unit.", "tlx unit UNIT_DATE_TIME",
         nullptr, runUnit},
        {"datetime", "DATETIME", "Shows a date-time (ISO 8601 or packed number) in all its forms.",
         "tlx datetime --utc 2024-03-05T13:07:09.456", addDateTimeOptions, runDateTime},
        {"duration", "NUMBER UNIT [UNIT]", "Converts a duration between units (ps, ns, us, ms, s, min, h).",
         "tlx duration 1500 ms s", nullptr, runDuration},
        {"stream", "FILE", "Lists the values in a file of streamed values, and where a damaged one ends.",
         "tlx stream --kind variant values.bin", addStreamOptions, runStream},
        {"hwid", "TEXT", "Parses a hardware identifier and shows its parts and forms.",
         "tlx hwid A012_003_Board", nullptr, runHwid},
        {"motor", "FILE", "Splits the name of a motor's parameter file into its parts.",
         "tlx motor ACME_M100_1", addMotorOptions, runMotor},
        {"ip", "TEXT", "Parses an IPv6 address and shows it as the drives store it.",
         "tlx ip FE80:0:0:0:0:0:0:1", nullptr, runIp},
        {"devices", "FILE", "Shows a stored device list with its devices and sub-devices.",
         "tlx devices hall.devices --json", addDevicesOptions, runDevices},
        {"crc", "FILE", "Shows the CRC-32 of a file.", "tlx crc firmware.tar", nullptr, runCrc},
        {"company", "[PRODUCT]", "Shows the settings of the company, or of one product.", "tlx company 101",
         nullptr, runCompany},
        {"paths", "", "Shows where the files of a tool lie.", "tlx paths", addPathsOptions, runPaths},
        {"tar", "list FILE | check FILE | cat FILE MEMBER",
         "Lists or checks a tar archive, or writes a member's bytes to standard output.",
         "tlx tar cat firmware.tar image.bin", addTarOptions, runTar},
        {"totp", "make | check CODE", "Makes or checks a one-time code of the current time.",
         "tlx totp make --key-file key --digits 8", addTotpOptions, runTotp},
        {"bench-ticks", "", "Calibrates the tick stopwatch and shows its resolution.",
         "tlx bench-ticks --json", nullptr, runBenchTicks},
        {"tree", "DIRECTORY", "Lists a directory tree, hidden entries too; links are not followed.",
         "tlx tree --files etc", addTreeOptions, runTree},
        {"copy", "SOURCE DESTINATION", "Copies a file, or everything under a directory.",
         "tlx copy --force new.img etc/image/drive.img", addCopyOptions, runCopy},
        {"trash", "PATH...", "Moves files and directories to the recycle bin, without asking.",
         "tlx trash old.log", nullptr, runTrash},
        {"entry", "PATH...", "Shows to which entry point of a drive's file transfer a path belongs.",
         "tlx entry /opt/TARVENIK/etc/conf/drive.ini", nullptr, runEntry},
    };
    return table;
}
