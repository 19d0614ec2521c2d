"""Services that hang, die and come back while Ambrel runs: it goes on working, and learns of what it missed."""
import os
import re
import signal

import dbus

import desktop_test
import services
from desktop_test import DesktopTest
from dunst import Dunst
from heartbeat import Heartbeat
from programs import wait_until
from services import LOCKED, UNLOCKED, Logind, ScreenSaver

STANDSTILL_LIMIT_SECONDS = 1.5
NO_NOTIFICATION = "error notify: notification (add|authorization) failed: "


class Faults(DesktopTest):
    def start_with_heartbeat(self, defaults=None, **arguments):
        """Without the setting by which a service that hangs keeps applications."""
        Heartbeat.install()
        ambrel = self.start_ambrel(defaults={"keepBusyApps": False, **(defaults or {})}, **arguments)
        return ambrel, self.keep(Heartbeat(ambrel))

    def check_heartbeat(self, heartbeat):
        heartbeat.stop()
        self.assertGreater(heartbeat.beats, 5)
        print(f"{self.id()}: stood still for {heartbeat.longest * 1000:.0f} ms at most, {heartbeat.beats} beats")
        self.assertLess(heartbeat.longest, STANDSTILL_LIMIT_SECONDS)

    def quit_one(self, ambrel):
        subject = self.start_subject(ambrel)
        subject.say("destroy 1")
        self.wait_until_quit(ambrel, subject)

    def start_bus(self, kind):
        """A bus at an address of the test's own, and the variable that leads there."""
        address = f"unix:path={self.folder}/{kind}-bus"
        bus = self.start("dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1",
                         f"--address={address}", name=f"{kind} bus")
        bus.wait_for("unix:")
        return bus, {f"DBUS_{kind.upper()}_BUS_ADDRESS": address}

    def test_services_that_know_of_locks(self):
        """One hangs, is killed while it says that the screen is locked, and comes back."""
        for begin, lock in (
                (Logind, lambda service: service.update(LockedHint=True)),
                (ScreenSaver, lambda service: service.say("on"))):
            with self.subTest(begin.__name__):
                service = self.keep(begin())
                ambrel, heartbeat = self.start_with_heartbeat()
                self.freeze(service.pid)
                self.quit_one(ambrel)
                service.signal(signal.SIGCONT)
                lock(service)
                ambrel.wait_for(LOCKED + "SUSPENDED")
                self.freeze(service.pid)
                subject = self.close_without_quit(ambrel, "skipped(screen-locked)")
                service.signal(signal.SIGKILL)
                ambrel.wait_for("has ended while it said that the screen is locked")
                self.close_without_quit(ambrel, "skipped(screen-locked)")
                self.assertIsNone(ambrel.find(UNLOCKED))
                service = self.keep(begin())
                ambrel.wait_for(UNLOCKED + "resumed")
                self.check_left_alone(ambrel, subject)
                self.check_heartbeat(heartbeat)
                ambrel.stop()
                service.stop()

    def test_notification_daemon(self):
        dunst = self.keep(Dunst(self.folder))
        ambrel, heartbeat = self.start_with_heartbeat(defaults={"notifyOnQuit": True})
        self.freeze(dunst.pid)
        self.quit_one(ambrel)
        ambrel.wait_for("notify: posting quit notification")
        dunst.signal(signal.SIGCONT)
        dunst.wait_for_notification()
        self.expected_complaints = [NO_NOTIFICATION]
        self.freeze(dunst.pid)
        self.quit_one(ambrel)
        dunst.signal(signal.SIGKILL)
        ambrel.wait_for(re.compile(NO_NOTIFICATION))
        dunst = self.keep(Dunst(self.folder))
        self.quit_one(ambrel)
        dunst.wait_for_notification()
        self.check_heartbeat(heartbeat)

    def test_session_bus_hangs(self):
        dunst, saver = self.keep(Dunst(self.folder)), self.keep(ScreenSaver())
        ambrel, heartbeat = self.start_with_heartbeat(defaults={"notifyOnQuit": True})
        bus = services.process_of(dbus.SessionBus(private=True), services.BUS)
        self.freeze(bus)
        self.quit_one(ambrel)
        ambrel.wait_for("notify: posting quit notification")
        os.kill(bus, signal.SIGCONT)
        dunst.wait_for_notification()
        saver.say("on")
        ambrel.wait_for(LOCKED + "SUSPENDED")
        self.check_heartbeat(heartbeat)

    def test_system_bus_hangs(self):
        logind = self.keep(Logind())
        ambrel, heartbeat = self.start_with_heartbeat()
        bus = services.process_of(logind.bus, services.BUS)
        self.freeze(bus)
        self.quit_one(ambrel)
        os.kill(bus, signal.SIGCONT)
        logind.update(LockedHint=True)
        ambrel.wait_for(LOCKED + "SUSPENDED")
        self.check_heartbeat(heartbeat)

    def test_session_bus_dies(self):
        bus, environment = self.start_bus("session")
        ambrel, heartbeat = self.start_with_heartbeat(defaults={"notifyOnQuit": True}, environment=environment)
        self.expected_complaints = [NO_NOTIFICATION]
        bus.signal(signal.SIGKILL)
        ambrel.wait_for("systemstate: connection to the session bus lost")
        self.quit_one(ambrel)
        ambrel.wait_for(re.compile("error notify: notification add failed: "))
        self.check_heartbeat(heartbeat)
        ambrel.signal(signal.SIGTERM)
        self.assertEqual(0, ambrel.wait_for_end())

    def test_system_bus_dies_while_locked_and_comes_back(self):
        bus, environment = self.start_bus("system")
        self.keep(Logind(environment, LockedHint=True))
        ambrel, heartbeat = self.start_with_heartbeat(environment=environment)
        self.assertIsNotNone(ambrel.find("system-state monitor started; locked=true "))
        bus.signal(signal.SIGKILL)
        ambrel.wait_for("systemstate: connection to the system bus lost")
        self.close_without_quit(ambrel, "skipped(screen-locked)")
        self.assertEqual(1, ambrel.count(" lost: "))
        self.start_bus("system")
        self.close_without_quit(ambrel, "skipped(screen-locked)")
        self.assertIsNone(ambrel.find(UNLOCKED))
        logind = self.keep(Logind(environment))
        ambrel.wait_for(UNLOCKED + "resumed")
        logind.update(LockedHint=True)
        wait_until(lambda: ambrel.count(LOCKED + "SUSPENDED") == 1, "the screen is locked again")
        self.check_heartbeat(heartbeat)

    def test_started_beside_a_hung_session_bus(self):
        bus, environment = self.start_bus("session")
        self.freeze(bus.pid)
        self.expected_complaints = ["error lifecycle: no session bus"]
        ambrel, heartbeat = self.start_with_heartbeat(environment=environment)
        self.quit_one(ambrel)
        bus.signal(signal.SIGCONT)
        connection = dbus.bus.BusConnection(*environment.values())
        wait_until(lambda: services.process_of(connection, "app.ambrel.Ambrel") == ambrel.pid, "Ambrel has its name")
        self.check_heartbeat(heartbeat)

    def test_ends_beside_a_hung_session_bus(self):
        bus, environment = self.start_bus("session")
        self.freeze(bus.pid)
        self.expected_complaints = ["error lifecycle: no session bus"]
        ambrel = self.start_ambrel(environment=environment)
        ambrel.signal(signal.SIGTERM)
        self.assertEqual(0, ambrel.wait_for_end())


if __name__ == "__main__":
    desktop_test.main()
