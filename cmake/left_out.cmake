# leave_out(PART MISSING PACKAGES) - what is missing for a part of the product; told at the end.
function(leave_out part missing packages)
  set_property(GLOBAL APPEND PROPERTY LISTWRIGHT_LEFT_OUT
    "Left out: ${part}. Not found: ${missing} (Debian: ${packages}).")
endfunction()

# Loud only when it has changed.
function(tell_what_is_left_out)
  get_property(parts GLOBAL PROPERTY LISTWRIGHT_LEFT_OUT)
  set(mode NOTICE)
  if("${parts}" STREQUAL "${LISTWRIGHT_LEFT_OUT}")
    set(mode STATUS)
  endif()
  foreach(part IN LISTS parts)
    message(${mode} "${part}")
  endforeach()
  set(LISTWRIGHT_LEFT_OUT "${parts}" CACHE INTERNAL "What is left out")
endfunction()
