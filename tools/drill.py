"""What the tests of the whole console program share."""

# The day that the program works with, on which some of the demo firm's notifications are due.
TODAY = "2026-04-15"
CHANNELS = {1: "email", 2: "fax", 4: "letter", 8: "phone"}
# Open tasks due long after TODAY that nobody was told of.
FREE_TASKS = """SELECT ScheduleID FROM Schedule WHERE Closed=FALSE AND notifyType=0 AND
    DueDate>'2026-06-01' AND NOT EXISTS (SELECT * FROM ClientNotification WHERE
    ScheduleIDNum=ScheduleID) ORDER BY ScheduleID"""


def expect(condition, *words):
    if not condition:
        raise AssertionError(" ".join(map(str, words)))
