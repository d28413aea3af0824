# SPDX-License-Identifier: MIT
# Builds the measuring station against the installed library and runs it with good and bad arguments.
include(${CMAKE_CURRENT_LIST_DIR}/Steps.cmake)

# The forms of numbers and times are those of the plain locale.
set(ENV{LC_ALL} C)

set(station "${workFolder}/build/Bin/station")
set(channels "${workFolder}/channels.txt")

# Runs the station; its exit code must be `code`, and what it prints must match each of the expressions that
# follow `MATCHES`.
function(expect_station code)
    cmake_parse_arguments(PARSE_ARGV 1 run "" "" "ARGUMENTS;MATCHES")
    execute_process(COMMAND "${station}" ${run_ARGUMENTS}
        RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL code)
        message(FATAL_ERROR "station ${run_ARGUMENTS} ended with ${result}, not ${code}\n${output}")
    endif()
    foreach(expression IN LISTS run_MATCHES)
        if(NOT output MATCHES "${expression}")
            message(FATAL_ERROR "station ${run_ARGUMENTS} printed no '${expression}'\n${output}")
        endif()
    endforeach()
endfunction()

# The log must hold each of the texts.
function(expect_log)
    file(READ "${workFolder}/log.txt" log)
    foreach(text IN LISTS ARGN)
        string(FIND "${log}" "${text}" place)
        if(place EQUAL -1)
            message(FATAL_ERROR "The log doesn't tell '${text}'\n${log}")
        endif()
    endforeach()
endfunction()

# A channel file with one fault must be told with its place.
function(expect_bad_channels content place)
    file(WRITE "${channels}" "${content}")
    expect_station(2 ARGUMENTS --seconds 0.1 --channels "${channels}" MATCHES "${place}")
endfunction()

# A name that the command line must not cut anywhere.
set(samples "${workFolder}/my samples=\"1\".txt")
set(sampleLine "Time='20[0-9][0-9]-[0-9][0-9]-[0-9][0-9] [0-9:]+\\.[0-9][0-9][0-9]',Channel='")

install_library()
build_against_library("${sampleFolder}" "${workFolder}/build")

expect_station(0 ARGUMENTS --help
    MATCHES "^Samples channels .*\n\nUsage: station \\[options\\]\n\n  --seconds N +how long to sample; default 5\n"
            "\n  --channels FILE +the channels " "\n  --from TIME +.*, \"1\\.2\\.2026 10:00\" or "
            "\n  --sql +print .*\n  --help +this text\n\nNumbers .* is bad. 3: .* in another one\\.\n$")
expect_station(0 ARGUMENTS --seconds 0,3 --channels "${sampleFolder}/channels.txt" --log "${workFolder}/log.txt"
    MATCHES "channel +unit +last +min +max +mean +std dev +limits +state"
            "\nload\\.1 " "\nmemory\\.free +kB .*>= 50000\\.0 kB" "\nprocesses .* ok")
file(READ "${workFolder}/log.txt" log)
if(NOT log MATCHES "^Sampling [0-9]+ channels for 0\\.3 s\n")
    message(FATAL_ERROR "The log tells '${log}'")
endif()

file(WRITE "${channels}" "memory.total = kB; lower 0.5 kB; upper 1,5 kB # far too small\n\nprocesses=;lower 1\n")
expect_station(0 ARGUMENTS --decimal , --seconds 0.1 --channels "${channels}"
    MATCHES "memory\\.total +kB .*0,5 \\.\\.\\. 1,5 kB +out of limits\n" "processes .*>= 1,0 +ok\n")

# Each run keeps its samples and prints those alone, the others where it is asked for an earlier time.
file(WRITE "${channels}" "load.1 =\nmemory.total = MB\n")
set(sampling --seconds=0.1 --channels "${channels}" --log "${workFolder}/log.txt" --samples "${samples}")
set(ownLines "${sampleLine}load\\.1',Value=[0-9.]+,Unit=''\n${sampleLine}memory\\.total',Value=[0-9.]+,Unit='MB'\n$")
expect_station(0 ARGUMENTS ${sampling} --sql MATCHES "^${ownLines}")
file(WRITE "${samples}"
    "[\"2026-02-01 09:59:59.999\",\"memory.total\",0.5,\"MB\"]\n[\"2026-02-01 10:00:00.000\",\"load.1\",2.5,\"\"]\r\n"
    "no sample\n[\"2026-02-01 10:00:01.250\",\"memory.total\",1e3,\"MB\"]\n[\"2026-02-01 10:0")
set(earlierLines
    "^Time='2026-02-01 10:00:00\\.000',Channel='load\\.1',Value=2\\.5,Unit=''\n"
    "Time='2026-02-01 10:00:01\\.250',Channel='memory\\.total',Value=1000,Unit='MB'\n")
string(CONCAT earlierLines ${earlierLines})
expect_station(0 ARGUMENTS ${sampling} --sql --from "1.2.2026 10:00" --decimal , MATCHES "${earlierLines}${ownLines}")
expect_log("No sample: no sample\n" "No sample: [\"2026-02-01 10:0\n")
expect_station(0 ARGUMENTS ${sampling} "--from=2026-02-01 9:00" MATCHES "memory\\.total +MB +[0-9.]+ +0\\.5 ")
expect_station(0 ARGUMENTS ${sampling} --sql MATCHES "^${ownLines}")
expect_station(1 ARGUMENTS --channels "${channels}" --samples "${workFolder}" MATCHES "station: Cannot create file ")

expect_bad_channels("# none\n" "channels.txt: the file names no channel")
expect_bad_channels("load.1 = \n\nload.5\n" "channels.txt:3: '=' is missing")
expect_bad_channels("load.9 =\n" ":1: there is no channel 'load.9'")
expect_bad_channels("memory.free = V\n" ":1: the unit 'V' does not fit memory.free")
expect_bad_channels("load.1 =; upper x\n" ":1: 'x' is no number")
expect_bad_channels("load.1 =; above 3\n" ":1: 'above 3' is neither")
expect_bad_channels("load.1 =; upper 0\n" ":1: '0' can't be a limit")
expect_bad_channels("memory.free = kB; lower 5 kV\n" ":1: the limit '5 kV' is not in kB")
expect_bad_channels("load.1 =; lower 3; upper 2\n" ":1: the lower limit is above the upper one")
file(REMOVE "${channels}")
expect_station(2 ARGUMENTS --channels "${channels}" MATCHES "channels.txt: the file can't be read")

expect_station(2 ARGUMENTS --seconds 0 MATCHES "--seconds: '0' is not a time above 0")
expect_station(2 ARGUMENTS --seconds MATCHES "--seconds: the value is missing")
expect_station(2 ARGUMENTS --decimal x MATCHES "--decimal: 'x' is neither")
expect_station(2 ARGUMENTS --seconds --sql MATCHES "--seconds: the value is missing")
expect_station(2 ARGUMENTS --from 31.2.2026 MATCHES "--from: '31.2.2026' is not a time")
expect_station(2 ARGUMENTS --sql=yes MATCHES "--sql takes no value")
expect_station(2 ARGUMENTS --colour MATCHES "unknown option '--colour'")
expect_station(2 ARGUMENTS --serial COM0 MATCHES "--serial: 'COM0' is no port")
expect_station(2 ARGUMENTS --faulty MATCHES "--faulty goes with --instrument")
expect_station(2 ARGUMENTS --watch 0 MATCHES "--watch: '0' is no process number")
expect_station(2 ARGUMENTS --sql 5 MATCHES "unknown option '5'")
expect_station(2 ARGUMENTS --copy MATCHES "--copy goes with --about")

# What the program says of itself; for a bug report also of what is around it.
set(about "^Measuring station 0\\.2\\.0\nfile: station\nversion: 0\\.2\\.0\nwhat it does: Samples channels .*\n"
          "company: TRS8\n.*built by: [A-Z][A-Za-z]+ [0-9.]+\n")
string(CONCAT about ${about})
expect_station(0 ARGUMENTS --about MATCHES "${about}$")
expect_station(0 ARGUMENTS --about --copy
    MATCHES "${about}library: ${libraryVersion}, .*libTRS8_BTL\\.so" "\nsystem: .*Linux" "\nmemory: [0-9]+ of [0-9]+ MB"
            "\ncommand line: .*station --about --copy\n" "without windows there is no clipboard")

# Each store keeps the last run for the next one, and the channels for the user to edit.
foreach(store ini mem stream json)
    set(settings --store ${store} --settings "${workFolder}/settings.${store}" --seconds 0.1)
    expect_station(0 ARGUMENTS ${settings} MATCHES "^Measuring station\nlast run: none\n" "\nprocesses ")
    expect_station(0 ARGUMENTS ${settings} MATCHES "\nlast run: 20[0-9][0-9]-[0-9-]+ [0-9:.]+\n" "\nprocesses ")
    file(READ "${workFolder}/settings.${store}" content)
    if(NOT content MATCHES "processes.*upper 2000")
        message(FATAL_ERROR "The store ${store} keeps no channels\n${content}")
    endif()
endforeach()
file(WRITE "${workFolder}/bad.ini" "[Run]\nInterval=often\n")
expect_station(2 ARGUMENTS --settings "${workFolder}/bad.ini" MATCHES "bad.ini .Run. Interval: the value is not a number")
file(READ "${workFolder}/bad.ini" content)
if(NOT content STREQUAL "[Run]\nInterval=often\n")
    message(FATAL_ERROR "Bad settings were changed\n${content}")
endif()

# Nothing is lost by settings that can't be read or written.
foreach(store ini mem stream json)
    set(file "${workFolder}/settings.${store}")
    file(READ "${file}" before)
    file(CHMOD "${file}" PERMISSIONS OWNER_READ)
    expect_station(1 ARGUMENTS --store ${store} --settings "${file}" --seconds 0.1
        MATCHES "\nprocesses .*settings.${store} is read-only: the time of this run isn't kept")
    file(READ "${file}" after)
    if(NOT after STREQUAL before)
        message(FATAL_ERROR "The store ${store} changed a read-only file\n${after}")
    endif()
endforeach()
file(WRITE "${workFolder}/bad.json" "{")
expect_station(2 ARGUMENTS --store json --settings "${workFolder}/bad.json" MATCHES "Parse-Error in JSON-File: ")
file(WRITE "${workFolder}/bad.ini" "[Run]\nLastRun=yesterday\n")
expect_station(2 ARGUMENTS --settings "${workFolder}/bad.ini" MATCHES "bad.ini .Run. LastRun: the value is not a time")
file(WRITE "${workFolder}/bad.ini" "[Channels]\nload.1=; above 3\n")
expect_station(2 ARGUMENTS --settings "${workFolder}/bad.ini" MATCHES "bad.ini .Channels. load.1: 'above 3' is neither")
file(WRITE "${workFolder}/bad.ini" "[Channels]\nload.1=\n")
expect_station(2 ARGUMENTS --serial COM7 --settings "${workFolder}/bad.ini"
    MATCHES "bad.ini: the file names no channel of the instrument, 'serial.NAME'")
expect_station(2 ARGUMENTS --open MATCHES "Application.ini names no ExternalAppExe to open")

# A constant series, a single value and a gap.
file(WRITE "${workFolder}/own.chart" "[Chart]\nTitle=Own\nX_AxisTitle=t\nSeriesCount=3\n"
    "[Series_0]\nTitle=flat\nType=2\nX=[0,1,2]\nY=[5,5,5]\n"
    "[Series_1]\nTitle=one\nType=2\nX=[1]\nY=[7]\n[Series_2]\nTitle=none\nType=0\n")
expect_station(0 ARGUMENTS --chart "${workFolder}/own.chart"
    MATCHES "^Own\n" "\nflat\n.*[*] +[*] +[*]" "\none\n.*[*]" "\nnone\n  no values\n$")

file(GLOB charts "${workFolder}/build/Charts/*.chart")
list(GET charts -1 chart)
foreach(language German English)
    expect_station(0 ARGUMENTS --language ${language} --chart "${chart}" MATCHES "t .s. +load.1 " "\nload.1\n.*[*]")
endforeach()
# The texts of the library follow the language, in each store that writes a file by its name.
foreach(store ini mem json)
    set(settings --store ${store} --settings "${workFolder}/none/settings" --seconds 0.1)
    expect_station(1 ARGUMENTS ${settings} --language German
        MATCHES "station: Die Datei '[^'\n]*settings' kann nicht geschrieben werden\\.\n$")
    expect_station(1 ARGUMENTS ${settings} --language English
        MATCHES "station: The file '[^'\n]*settings' can't be written\\.\n$")
endforeach()
file(WRITE "${workFolder}/damaged.chart" "[Chart]\nSeriesCount=9\n")
expect_station(2 ARGUMENTS --chart "${workFolder}/damaged.chart" MATCHES "damaged.chart: ")
expect_station(2 ARGUMENTS --chart "${workFolder}/none.chart" MATCHES "none.chart: there is no such chart")

# The forms of the settings, one derived from the other: as they are designed, translated, changed and kept.
set(forms --settings "${workFolder}/forms.ini" --form)
expect_station(0 ARGUMENTS ${forms}
    MATCHES "^TSettingsForm SettingsForm [^\n]* \"Settings of the station\"" "\n  TEdit fEdit_Interval 160,8 80x21 \"0.25\""
            "\nTInstrumentForm InstrumentForm [^\n]* \"Settings of a station with an instrument\""
            "\n  TButton fBtn_Ok 240,260 .*\n  TEdit fEdit_Port 160,226 80x21 \"\"")
expect_station(0 ARGUMENTS ${forms} --language German
    MATCHES "^TSettingsForm SettingsForm [^\n]* \"Einstellungen der Station\"" "\"&Kanäle mit Einheit und Grenzen\""
            "\"&Anschluss\"")
expect_station(0 ARGUMENTS ${forms} --set SettingsForm.fEdit_Interval.Text=0.5 --set SettingsForm.fEdit_Interval.Left=200
                           --set InstrumentForm.fEdit_Port.Text=com9
    MATCHES "\n  TEdit fEdit_Interval 200,8 80x21 \"0.5\"" "\n  TEdit fEdit_Port 160,226 80x21 \"com9\"")
foreach(language German English)
    expect_station(0 ARGUMENTS ${forms} --language ${language}
        MATCHES "\n  TEdit fEdit_Interval 200,8 80x21 \"0.5\".*\n  TEdit fEdit_Interval 160,8 80x21 \"0.5\""
                "\n  TEdit fEdit_Port 160,226 80x21 \"COM9\"")
endforeach()
expect_station(0 ARGUMENTS ${forms} --set SettingsForm.fEdit_Interval.Left=160 --set InstrumentForm.fEdit_Port.Text=
    MATCHES "\n  TEdit fEdit_Port 160,226 80x21 \"\"")
file(GLOB kept "${workFolder}/build/UserData/i18n/*")
if(kept)
    message(FATAL_ERROR "A form that is back in its design keeps ${kept}")
endif()
expect_station(0 ARGUMENTS --design
    MATCHES "^object SettingsForm: TSettingsForm\n" "\n  object fEdit_Interval: TEdit\n"
            "\ninherited InstrumentForm: TInstrumentForm\n" "\n  inherited fBtn_Ok: TButton\n    Top = 260\n  end\n"
            "\n  object fEdit_Port: TEdit\n[^:]*end\nend\n$")
expect_station(0 ARGUMENTS --design --language German MATCHES "\n  inherited fBtn_Cancel: TButton\n    Top = 260\n    Caption = 'Abbrechen'")
foreach(change "fEdit_Interval.Text=1" "NoForm.fEdit_Interval.Text=1" "SettingsForm.fNone.Text=1" "SettingsForm.fEdit_Interval.Left=x"
               "SettingsForm.fEdit_Interval.Text=often" "InstrumentForm.fEdit_Port.Text=COM999" "SettingsForm.fMemo_Channels.Lines=[load.1]")
    expect_station(2 ARGUMENTS ${forms} --set "${change}" MATCHES "^station: ")
endforeach()
expect_station(2 ARGUMENTS --set SettingsForm.fEdit_Interval.Text=1 MATCHES "--set goes with --form")

# The window: used by the keyboard on a toolkit without a screen, and painted where Qt is installed. Without
# either, the run is that of the terminal.
build_against_library("${CMAKE_CURRENT_LIST_DIR}/window" "${workFolder}/window" "-DSTATION=${sampleFolder}")
file(WRITE "${channels}" "memory.total = kB; lower 0.5 kB; upper 1.5 kB\nprocesses =\n")
run_step(DESCRIPTION "The station's window" OUTPUT printed
    COMMAND "${workFolder}/window/Bin/window" --window --channels "${channels}")
if(NOT printed MATCHES "TMainForm MainForm 20,30 900x640 \"Messstation\"")
    message(FATAL_ERROR "The window came back as\n${printed}")
endif()
expect_station(0 ARGUMENTS --window --seconds 0.1
    MATCHES "station: there is nothing here to show a window; the run goes on without one\n" "Measuring station\nlast run: ")
set(picture "${workFolder}/window.png")
# What the host's own libraries don't give back is no fault of the station.
set(ENV{LSAN_OPTIONS} "suppressions=${CMAKE_CURRENT_LIST_DIR}/../support/QtLeaks.txt:print_suppressions=0")
if(EXISTS "${prefix}/${libFolder}/TRS8_BTL-0.2/libTRS8_BTL_qt.so" OR EXISTS "${prefix}/${libFolder}/libTRS8_BTL_qt.so")
    expect_station(0 ARGUMENTS --window --screenshot "${picture}" --seconds 1)
    find_program(bash NAMES bash REQUIRED)
    run_step(DESCRIPTION "A station with a window beside others"
        COMMAND ${bash} "${CMAKE_CURRENT_LIST_DIR}/window.sh" "${station}" "${workFolder}")
    # One colour alone would take less.
    file(SIZE "${picture}" size)
    file(READ "${picture}" head LIMIT 24 HEX)
    if(size LESS 8000 OR NOT head MATCHES "^89504e470d0a1a0a0000000d494844520000[0-9a-f][0-9a-f][0-9a-f][0-9a-f]0000[0-9a-f][0-9a-f][0-9a-f][0-9a-f]$")
        message(FATAL_ERROR "The picture of the window has ${size} bytes and begins with ${head}")
    endif()
else()
    expect_station(0 ARGUMENTS --window --screenshot "${picture}" --seconds 0.1 MATCHES "nothing here to show a window" "Measuring station\nlast run: ")
endif()
unset(ENV{LSAN_OPTIONS})
expect_station(2 ARGUMENTS --screenshot "${picture}" MATCHES "--screenshot goes with --window")
# Told before a run that would be for nothing.
foreach(file window.jpg window)
    expect_station(2 ARGUMENTS --window --screenshot "${workFolder}/${file}" --seconds 1000 MATCHES "window[.jp]*g?' is no .png file")
endforeach()
expect_station(2 ARGUMENTS --window --screenshot "${workFolder}/none/window.png" --seconds 1000 MATCHES "there is no such folder")

find_program(bash NAMES bash REQUIRED)
run_step(DESCRIPTION "The station beside an instrument"
    COMMAND ${bash} "${CMAKE_CURRENT_LIST_DIR}/pair.sh" "${station}" "${workFolder}")
run_step(DESCRIPTION "A station watched by another one"
    COMMAND ${bash} "${CMAKE_CURRENT_LIST_DIR}/watch.sh" "${station}" "${workFolder}")
run_step(DESCRIPTION "Several stations for one file of samples"
    COMMAND ${bash} "${CMAKE_CURRENT_LIST_DIR}/single.sh" "${station}" "${workFolder}")

file(REMOVE_RECURSE "${workFolder}")
