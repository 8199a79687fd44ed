# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
cmake_minimum_required(VERSION 3.25)
# Installs the desktop's files by prefixes other than the configured one, into a folder of the test's own.
file(REMOVE_RECURSE ${WORK})
function(install_to prefix)
  foreach(component IN ITEMS programs panel)
    execute_process(COMMAND ${CMAKE_COMMAND} -E env DESTDIR=${WORK} ${CMAKE_CURRENT_LIST_DIR}/install ${BUILD} ${WORK}.manifest
      --prefix "${prefix}" --component ${component} COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endfunction()
function(expect_line file line)
  file(STRINGS "${WORK}${file}" lines)
  if(NOT line IN_LIST lines)
    message(FATAL_ERROR "${file} has no line \"${line}\": ${lines}")
  endif()
endfunction()

install_to(/usr)
expect_line(/etc/xdg/autostart/quode-alarmd.desktop "Exec=/usr/bin/quode-alarmd")
expect_line(/usr/lib/systemd/user/quode-alarmd.service "ExecStart=/usr/bin/quode-alarmd")
install_to(/opt/quode)
expect_line(/opt/quode/etc/xdg/autostart/quode-alarmd.desktop "Exec=/opt/quode/bin/quode-alarmd")
expect_line(/opt/quode/lib/systemd/user/quode-alarmd.service "ExecStart=/opt/quode/bin/quode-alarmd")
expect_line(/usr/share/dbus-1/services/org.quode.Quode1.service "Exec=/usr/bin/quode-alarmd")
expect_line(/opt/quode/share/dbus-1/services/org.quode.Quode1.service "SystemdService=quode-alarmd.service")
expect_line(/usr/share/krunner/dbusplugins/quode-krunner.desktop "X-Plasma-DBusRunner-Service=org.quode.Quode1")
# Otherwise KRunner leaves the search out until the user looks for it.
expect_line(/usr/share/krunner/dbusplugins/quode-krunner.desktop "X-KDE-PluginInfo-EnabledByDefault=true")
expect_line(/usr/share/dbus-1/interfaces/org.quode.Quode1.xml "<node name=\"/org/quode/Quode1\">")
# Where systemd looks for the units of a user's own programs.
install_to(/home/somebody/.local)
expect_line(/home/somebody/.local/share/systemd/user/quode-alarmd.service "ExecStart=/home/somebody/.local/bin/quode-alarmd")
# A path that needs quotes, by the rules of each format.
install_to("/opt/50% off")
expect_line("/opt/50% off/etc/xdg/autostart/quode-alarmd.desktop" "Exec=\"/opt/50%% off/bin/quode-alarmd\"")
expect_line("/opt/50% off/lib/systemd/user/quode-alarmd.service" "ExecStart=\"/opt/50%% off/bin/quode-alarmd\"")
expect_line("/opt/50% off/share/dbus-1/services/org.quode.Quode1.service" "Exec=\"/opt/50% off/bin/quode-alarmd\"")
if(EXISTS ${WORK}/usr/share/applications/quode-panel.desktop)
  expect_line(/usr/share/applications/quode-panel.desktop "Exec=/usr/bin/quode-panel")
  expect_line(/opt/quode/share/applications/quode-panel.desktop "Exec=/opt/quode/bin/quode-panel")
endif()
