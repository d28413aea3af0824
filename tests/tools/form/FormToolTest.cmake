# Runs the program that compiles forms as a user does.
file(REMOVE_RECURSE "${workFolder}")
file(MAKE_DIRECTORY "${workFolder}")

# Runs the tool; `result` is what it must return, and what it tells must match `told`.
function(run result told)
    execute_process(COMMAND "${tool}" ${ARGN} WORKING_DIRECTORY "${workFolder}" RESULT_VARIABLE actual
                    OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT actual STREQUAL "${result}")
        message(FATAL_ERROR "${ARGN} returned ${actual} in place of ${result}: ${out}${err}")
    endif()
    if(NOT "${out}${err}" MATCHES "${told}")
        message(FATAL_ERROR "${ARGN} told '${out}${err}', which isn't '${told}'")
    endif()
endfunction()

set(good "object Main: TMain\n  Caption = '5 µm'\n  object Part: TComponent\n    Tag = 3\n  end\nend\n")
file(WRITE "${workFolder}/Good.form" "${good}")
run(0 "^$" check Good.form)
run(0 "^$" compile Good.form -o Good.bin)
run(0 "^$" text Good.bin -o Again.form)
file(READ "${workFolder}/Again.form" again)
if(NOT again STREQUAL good)
    message(FATAL_ERROR "There and back again it is ${again}")
endif()
run(0 "object Main: TMain" text Good.bin)
run(0 "^$" source Good.form -o Good.cpp --symbol my_form)
file(READ "${workFolder}/Good.cpp" source)
if(NOT source MATCHES "RegisterForm\\(\"TMain\", Bytes" OR NOT source MATCHES "my_form")
    message(FATAL_ERROR "The source is ${source}")
endif()

# Each fault has its place, in the form that editors jump to.
file(WRITE "${workFolder}/Bad.form"
     "object Main: TMain\n  object A: TBox\n    X = 1\n    x = 2\n  end\n  object a: TBox\n  end\n  Y =\nend\n")
run(1 "Bad.form:4:5: error: Main.A.x \\(TBox\\): the property is there twice.*Bad.form:6:10: error: Main.a \\(TBox\\): there is another component of this name.*Bad.form:8:3: error: "
    check Bad.form)
run(1 "Bad.form:4:5" compile Bad.form -o Bad.bin)
if(EXISTS "${workFolder}/Bad.bin")
    message(FATAL_ERROR "A faulty form was compiled")
endif()
run(1 "the class TComponent is unknown" check --all-classes Good.form)

run(1 "Nowhere" check Nowhere.form)
run(1 "doesn't begin with TPF0" text Good.form)
run(1 "Nowhere" check --load ./Nowhere.so Good.form)
run(0 "Usage" --help)
run(2 "a command is missing")
run(2 "a file is missing" check)
run(2 "unknown command frob" frob Good.form)
run(2 "unknown option --frob" check --frob Good.form)
run(2 "-o OUT is missing" compile Good.form)
run(2 "takes a value" compile Good.form -o)
