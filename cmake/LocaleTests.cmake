# Runs some tests of a test executable once more under each locale environment users have:
# C.UTF-8, en_US.UTF-8, de_DE.UTF-8 and a C locale with LANGUAGE=en. Names, numbers and time
# texts depend on it (ICU reads LANG/LC_ALL, Qt's system locale too). scripts/setup-deps
# generates the two named locales.
function(captora_add_locale_tests executable filter)
    # name|modifications, the modifications separated by commas
    set(environments
        "C.UTF-8|LANG=set:C.UTF-8,LC_ALL=unset:,LC_MESSAGES=unset:,LC_NUMERIC=unset:,LANGUAGE=unset:"
        "en_US|LANG=set:en_US.UTF-8,LC_ALL=unset:,LC_MESSAGES=unset:,LC_NUMERIC=unset:,LANGUAGE=unset:"
        "de_DE|LANG=set:de_DE.UTF-8,LC_ALL=unset:,LC_MESSAGES=unset:,LC_NUMERIC=unset:,LANGUAGE=unset:"
        "LANGUAGE_en|LANG=unset:,LC_ALL=set:C.UTF-8,LANGUAGE=set:en")
    foreach(entry IN LISTS environments)
        string(FIND "${entry}" "|" bar)
        string(SUBSTRING "${entry}" 0 ${bar} name)
        math(EXPR first "${bar} + 1")
        string(SUBSTRING "${entry}" ${first} -1 modifications)
        string(REPLACE "," ";" modifications "${modifications}")
        set(test ${executable}.locale.${name})
        add_test(NAME ${test} COMMAND ${executable} --gtest_filter=${filter})
        set_tests_properties(${test} PROPERTIES ENVIRONMENT_MODIFICATION "${modifications}")
    endforeach()
endfunction()
