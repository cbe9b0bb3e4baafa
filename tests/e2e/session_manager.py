"""A session manager as a desktop has one: asks the programs of a session to save, and ends them."""

import ctypes
import select
import threading
from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int, c_ubyte, c_ulong, c_void_p

from processes import wait_until
from xserver import Unavailable

# What is to be saved, and how a program may ask about it, as the protocol numbers them.
SAVE_GLOBAL, SAVE_LOCAL, SAVE_BOTH = range(3)
NOBODY_IS_ASKED, ERRORS_ARE_ASKED, ANYTHING_IS_ASKED = range(3)

ERROR_SIZE = 256
EVERY_CALLBACK = (1 << 10) - 1
POLL_INTERVAL = 0.02

# What C code points to: the libraries call those of an earlier manager for a later one, too.
kept = []


class Callback(ctypes.Structure):
    _fields_ = [("function", c_void_p), ("data", c_void_p)]


class Callbacks(ctypes.Structure):
    """Those of libSM, in its order."""
    _fields_ = [(name, Callback) for name in (
        "register_client", "interact_request", "interact_done", "save_yourself_request",
        "save_yourself_phase2_request", "save_yourself_done", "close_connection", "set_properties",
        "delete_properties", "get_properties")]


# By name, the types of what each is called with after the connection and its own data.
ARGUMENTS = {
    "register_client": [c_void_p],
    "interact_request": [c_int],
    "interact_done": [c_int],
    "save_yourself_request": [c_int, c_int, c_int, c_int, c_int],
    "save_yourself_phase2_request": [],
    "save_yourself_done": [c_int],
    "close_connection": [c_int, c_void_p],
    "set_properties": [c_int, c_void_p],
    "delete_properties": [c_int, c_void_p],
    "get_properties": [],
}
RETURNS_A_STATUS = {"register_client"}


class SessionManager:
    """Manages the programs that find it by its environment; a context manager that closes itself.

    It works on a thread of its own, since a program that starts waits for it. What programs answer:
    "interact_request", then "interact_done" with whether the end of the session is cancelled, and
    "save_yourself_done" with whether all is saved.
    """

    def __init__(self):
        try:
            self._ice = ctypes.CDLL("libICE.so.6")
            self._sm = ctypes.CDLL("libSM.so.6")
            self._libc = ctypes.CDLL(None)
        except OSError as reason:
            raise Unavailable(f"a session manager needs the X libraries: {reason}") from reason
        for function in (self._ice.IceAcceptConnection, self._ice.IceComposeNetworkIdList,
                         self._sm.SmsGenerateClientID, self._sm.SmsGetIceConnection,
                         self._libc.malloc, self._libc.strdup):
            function.restype = c_void_p
        self._answers = []
        self._clients = []
        self._connections = []
        self._lock = threading.Lock() # of all that is above and of what the libraries do
        self._is_closed = threading.Event()
        self._listen()
        self._thread = threading.Thread(target=self._work)
        self._thread.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._is_closed.set()
        self._thread.join()
        for connection in self._connections:
            self._ice.IceSetShutdownNegotiation(c_void_p(connection), 0)
            self._ice.IceCloseConnection(c_void_p(connection))
        self._ice.IceFreeListenObjs(self._listener_count, self._listeners)

    @staticmethod
    def _keep(value):
        kept.append(value)
        return value

    def _listen(self):
        error = ctypes.create_string_buffer(ERROR_SIZE)
        new_client = self._keep(CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong),
                                          POINTER(Callbacks), c_void_p)(self._accept_client))
        anybody = self._keep(CFUNCTYPE(c_int, c_char_p)(lambda _host: 1))
        if not self._sm.SmsInitialize(b"Quenara's tests", b"1", new_client, None, anybody,
                                      ERROR_SIZE, error):
            raise Unavailable(error.value.decode())
        count, listeners = c_int(), c_void_p()
        if not self._ice.IceListenForConnections(byref(count), byref(listeners), ERROR_SIZE, error):
            raise Unavailable(error.value.decode())
        self._listener_count, self._listeners = count, listeners
        self._places = ctypes.cast(listeners, POINTER(c_void_p))[:count.value]
        for place in self._places:
            self._ice.IceSetHostBasedAuthProc(c_void_p(place), anybody)
        # An error of the connection would end the process.
        self._ice.IceSetIOErrorHandler(self._keep(CFUNCTYPE(None, c_void_p)(lambda _: None)))
        names = self._ice.IceComposeNetworkIdList(count, listeners)
        self.environment = {"SESSION_MANAGER": ctypes.string_at(names).decode()}

    def _accept_client(self, connection, _data, mask, callbacks, _reason):
        mask[0] = EVERY_CALLBACK
        for name, arguments in ARGUMENTS.items():
            def called(client, _data, *values, name=name):
                self._hear(client, name, values)
                return 1

            kind = CFUNCTYPE(c_int if name in RETURNS_A_STATUS else None, c_void_p, c_void_p,
                             *arguments)
            function = self._keep(kind(called))
            setattr(callbacks.contents, name, Callback(ctypes.cast(function, c_void_p), None))
        return 1

    def _hear(self, client, name, values):
        if name == "register_client":
            if values[0]: # a program of an earlier session: begins anew
                self._libc.free(c_void_p(values[0]))
            identifier = c_void_p(self._sm.SmsGenerateClientID(c_void_p(client)))
            self._sm.SmsRegisterClientReply(c_void_p(client), identifier)
            self._clients.append(client)
        elif name == "close_connection":
            self._clients.remove(client)
        elif name == "get_properties":
            self._sm.SmsReturnProperties(c_void_p(client), 0, None)
        elif name == "save_yourself_phase2_request":
            self._sm.SmsSaveYourselfPhase2(c_void_p(client))
        if name in ("interact_request", "interact_done", "save_yourself_done"):
            self._answers.append((name, values[0]) if name != "interact_request" else name)

    def _work(self):
        while not self._is_closed.is_set():
            with self._lock:
                listening = {self._ice.IceGetListenConnectionNumber(c_void_p(place)): place
                             for place in self._places}
                talking = {self._ice.IceConnectionNumber(c_void_p(connection)): connection
                           for connection in self._connections}
            readable, _, _ = select.select([*listening, *talking], [], [], POLL_INTERVAL)
            with self._lock:
                for number in readable:
                    if number in listening:
                        self._connect(listening[number])
                    else:
                        self._process(talking[number])

    def _connect(self, listener):
        status = c_int()
        connection = self._ice.IceAcceptConnection(c_void_p(listener), byref(status))
        if connection:
            self._connections.append(connection)

    def _process(self, connection):
        failed = 1
        if self._ice.IceProcessMessages(c_void_p(connection), None, byref(c_int())) == failed:
            self._connections.remove(connection)
            self._ice.IceSetShutdownNegotiation(c_void_p(connection), 0)
            self._ice.IceCloseConnection(c_void_p(connection))

    def wait_for(self, *answers):
        """Waits until the programs have given exactly these answers, and forgets them."""
        try:
            wait_until(lambda: len(self._answers) >= len(answers), f"{answers}")
        except AssertionError:
            pass # what has been heard says more
        with self._lock:
            heard, self._answers = self._answers, []
        if heard != list(answers):
            raise AssertionError(f"{heard} instead of {answers}")

    def wait_for_client(self):
        wait_until(lambda: self._clients, "a program to join the session")

    def _tell(self, message, *arguments):
        with self._lock:
            for client in self._clients:
                message(c_void_p(client), *arguments)

    def save(self, kind=SAVE_BOTH, asking=ANYTHING_IS_ASKED, ends=True):
        """Asks the programs to save themselves; `ends` says that the session is to end."""
        self._tell(self._sm.SmsSaveYourself, kind, int(ends), asking, 0)

    def let_interact(self):
        self._tell(self._sm.SmsInteract)

    def cancel_the_end(self):
        self._tell(self._sm.SmsShutdownCancelled)

    def end_session(self):
        self._tell(self._sm.SmsDie)
