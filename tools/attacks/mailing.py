"""The attack by mail servers that misbehave, and by an outbox with something in its way."""

from attacks.misbehaving_mail import GOOD, MISBEHAVIOURS, MailServer
from attacks.firms import finish
from attacks.works import interrupt


def as_file(place):
    place.write_text("not a folder\n")


def as_broken_link(place):
    place.symlink_to("nowhere/at/all")


# What stands where a folder should be.
OBSTACLES = [(where, make) for where in ("sent", "") for make in (as_file, as_broken_link)]


class Mail:
    """Mail servers misbehave."""

    # Most of the time they are waited for.
    name, share, workers = "mail", 10, 8

    def __init__(self, kit):
        self.kit, self.work = kit, kit.work("submit")
        kit.certificate
        self.cases = [*MISBEHAVIOURS, *OBSTACLES]
        kit.chance(self.name).shuffle(self.cases)

    def label(self, case):
        if case in OBSTACLES:
            where, make = case
            return f"{make.__name__} stands for the outbox/{where}".replace("_", " ")
        return case.name

    def run(self, case, firm_name, _chance):
        firm = self.kit.firm(firm_name)
        is_obstacle = case in OBSTACLES
        firm.mail = MailServer(GOOD if is_obstacle else case, self.kit.certificate)
        try:
            interrupt(self.work, firm, lambda: finish(self.work.start(firm)) if not is_obstacle
                      else self.obstructed(firm, *case))
        finally:
            firm.remove()

    def obstructed(self, firm, where, make):
        place = firm.outbox / where
        place.parent.mkdir(exist_ok=True)
        make(place)
        try:
            return finish(self.work.start(firm))
        finally:
            place.unlink(missing_ok=True)
