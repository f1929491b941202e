#!/usr/bin/python3
"""What a screen reader says of the program's newest window: role, label, name and description of the
window, of whatever in it can have the focus, and of its status."""
import pyatspi


def said(node):
    labels = [relation.getTarget(0).name for relation in node.getRelationSet()
              if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    words = [node.getRoleName(), *labels, *[node.name] * ([node.name] != labels)]
    return " ".join(filter(None, words)) + f" ({node.description})" * bool(node.description)


def spoken(node):
    states = node.getState()
    if states.contains(pyatspi.STATE_SHOWING):
        if states.contains(pyatspi.STATE_FOCUSABLE) or node.getRole() == pyatspi.ROLE_STATUS_BAR:
            yield said(node)
        for child in node:
            yield from spoken(child)


[program] = [each for each in pyatspi.Registry.getDesktop(0) if each.name == "Rankelo"]
window = program[program.childCount - 1]
print(", ".join([said(window), *(text for each in window for text in spoken(each))]))
