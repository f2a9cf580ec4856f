# What the program says about itself: the one place that feeds the version resources, the about box, mails, printed pages,
# the installer and the manifests of a release. The version is that of the project.
set(QUILLO_NAME "Quillo")
set(QUILLO_PUBLISHER "Marrowind")
set(QUILLO_COPYRIGHT_YEAR "2026")
set(QUILLO_LICENSE "Freeware")
set(QUILLO_DESCRIPTION "Sticky notes for the Windows desktop")
# The host name of the publisher's site. It is under a reserved name, so that no stranger is ever called; whoever publishes
# the program puts their own here.
set(QUILLO_HOST "www.marrowind.example")
# By this name the system knows the program's balloons and the buttons of its task bar.
set(QUILLO_APP_ID "Marrowind.Quillo")
