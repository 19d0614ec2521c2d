"""Locks, other sessions, sleep and dark displays: when a window that is gone need not have been closed."""
import os
import re
import signal
import subprocess

import dbus

import desktop_test
import services
from desktop_test import SUBJECT, DesktopTest
from services import LOCKED, UNLOCKED, Logind, Occupant, ScreenSaver

WAITING_LIMIT_SECONDS = 1.5
ENDING = "systemstate: login session "


class Session(DesktopTest):
    def start_logind(self, **properties):
        return self.keep(Logind(**properties))

    def start_occupant(self, *arguments):
        return self.keep(Occupant(*arguments))

    def start_saver(self, *arguments):
        return self.keep(ScreenSaver(*arguments))

    def check_trusted_again(self, ambrel, *survivors):
        ambrel.wait_for("engine: system returned to trusted state — rebuilding monitors so restored windows "
                        "don't read as closed")
        self.check_left_alone(ambrel, *survivors)
        for subject in survivors:
            begin = len(ambrel.lines)
            subject.open()
            ambrel.wait_for(re.compile(f"{SUBJECT} windows 0->1 "), after=begin)
            subject.say("destroy 2")
            self.wait_until_quit(ambrel, subject)

    def check_start(self, ambrel, limit=WAITING_LIMIT_SECONDS):
        """Nothing that hangs has held up the start for more than the limit (and a little for the machine)."""
        before, after = ambrel.find("idle: idle monitor started"), ambrel.find("system-state monitor started")
        self.assertLess(after.time - before.time, limit + 0.5)

    def test_lock_sleep_wake_unlock(self):
        logind = self.start_logind()
        ambrel = self.start_ambrel()
        self.assertIsNotNone(ambrel.find("system-state monitor started; locked=false sessionInactive=false "))
        logind.update(LockedHint=True)
        ambrel.wait_for(LOCKED + "SUSPENDED")
        subject = self.close_without_quit(ambrel, "skipped(screen-locked)")
        logind.prepare_for_sleep(True)
        ambrel.wait_for("sleepwake: system will sleep")
        logind.prepare_for_sleep(False)
        ambrel.wait_for("sleepwake: system woke; rebuilding monitors")
        self.assertIsNone(ambrel.find(UNLOCKED))
        logind.update(LockedHint=False)
        ambrel.wait_for(UNLOCKED + "resumed")
        self.check_trusted_again(ambrel, subject)
        self.assertEqual(1, ambrel.count(LOCKED))

    def test_another_user_takes_the_console(self):
        logind = self.start_logind()
        ambrel = self.start_ambrel()
        logind.update(Active=False, LockedHint=True)
        ambrel.wait_for("login session resigned active (fast user switch) — last-window quits SUSPENDED")
        subject = self.close_without_quit(ambrel, "skipped(session-inactive)")
        logind.update(Active=True)
        ambrel.wait_for("login session became active — last-window quits SUSPENDED")
        logind.update(LockedHint=False)
        self.check_trusted_again(ambrel, subject)

    def test_every_screen_saver(self):
        for name, path in (("org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver"),
                           ("org.freedesktop.ScreenSaver", "/ScreenSaver"),
                           ("org.gnome.ScreenSaver", "/org/gnome/ScreenSaver"),
                           ("org.mate.ScreenSaver", "/"),
                           ("org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver"),
                           ("org.xfce.ScreenSaver", "/")):
            with self.subTest(path):
                saver = self.start_saver(name, path, "on")
                ambrel = self.start_ambrel()
                self.assertIsNotNone(ambrel.find("system-state monitor started; locked=true "))
                for _ in range(2):
                    begin = len(ambrel.lines)
                    saver.say("off")
                    ambrel.wait_for(UNLOCKED + "resumed", after=begin)
                    saver.say("on")
                    ambrel.wait_for(LOCKED + "SUSPENDED", after=begin)
                ambrel.stop()
                saver.stop()

    def test_locker_that_tells_nobody(self):
        ambrel, subject = self.start_with_subject()
        locker = self.start("i3lock", "--nofork")
        ambrel.wait_for(LOCKED + "SUSPENDED")
        subject.say("destroy 1")
        self.wait_for_decision(ambrel, "skipped(screen-locked)", subject)
        locker.stop()
        self.check_trusted_again(ambrel, subject)

    def test_session_that_ends_or_stays(self):
        logind = self.start_logind()
        manager = self.start_occupant("xfce")
        ambrel = self.start_ambrel()
        for begin, call_off in ((lambda: logind.prepare_for_shutdown(True), lambda: logind.prepare_for_shutdown(False)),
                                (lambda: manager.say("1 3"), lambda: manager.say("4 1"))):
            mark = len(ambrel.lines)
            begin()
            ambrel.wait_for(ENDING + "is ending — last-window quits SUSPENDED", after=mark)
            subject = self.close_without_quit(ambrel, "skipped(session-ending)")
            call_off()
            ambrel.wait_for(ENDING + "stays — last-window quits resumed", after=mark)
            self.check_left_alone(ambrel, subject)

    def test_screen_saver_dies_and_logind_is_asked(self):
        logind, saver = self.start_logind(), self.start_saver()
        ambrel = self.start_ambrel()
        saver.say("on")
        ambrel.wait_for(LOCKED + "SUSPENDED")
        self.freeze(logind.pid)
        saver.stop()
        ambrel.wait_for("has ended while it said that the screen is locked")
        self.close_without_quit(ambrel, "skipped(screen-locked)")
        self.assertIsNone(ambrel.find(UNLOCKED))
        logind.signal(signal.SIGCONT)
        ambrel.wait_for(UNLOCKED + "resumed")

    def test_logind_or_its_bus_hangs_at_the_start(self):
        for hanging in (lambda logind: logind.pid, lambda logind: services.process_of(logind.bus, services.BUS)):
            logind = self.start_logind()
            pid = hanging(logind)
            self.freeze(pid)
            ambrel = self.start_ambrel()
            self.check_start(ambrel)
            self.assertEqual(1, ambrel.count("logind is not there or doesn't answer"))
            subject = self.start_subject(ambrel)
            subject.say("destroy 1")
            # Nobody says that it blocks nothing.
            self.wait_for_decision(ambrel, "skipped(no-answer)", subject)
            os.kill(pid, signal.SIGCONT)
            self.wait_until_quit(ambrel, subject)
            logind.update(LockedHint=True)
            ambrel.wait_for(LOCKED + "SUSPENDED")
            ambrel.stop()
            logind.stop()

    def test_nothing_to_watch(self):
        for address in (f"unix:path={self.folder}/no-bus", os.environ["DBUS_SYSTEM_BUS_ADDRESS"]):
            ambrel = self.start_ambrel(environment={"DBUS_SYSTEM_BUS_ADDRESS": address})
            self.check_start(ambrel, limit=0)
            self.check_left_alone(ambrel)
            self.assertEqual(2, ambrel.count(" not watched until "))
            ambrel.stop()
        self.assertFalse(dbus.SystemBus().name_has_owner(services.LOGIN))

    def test_dark_displays(self):
        subprocess.run(["xset", "s", "activate"], check=True)
        self.addCleanup(subprocess.run, ["xset", "s", "reset"], check=True)
        ambrel = self.start_ambrel()
        ambrel.wait_for("screens asleep — last-window quits SUSPENDED")
        subject = self.close_without_quit(ambrel, "skipped(screen-locked)")
        subprocess.run(["xset", "s", "reset"], check=True)
        ambrel.wait_for("screens awake — last-window quits resumed")
        self.check_trusted_again(ambrel, subject)


if __name__ == "__main__":
    desktop_test.main()
